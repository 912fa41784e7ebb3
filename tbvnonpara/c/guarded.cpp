#include "tbvnonpara/c/guarded.hpp"

#include <algorithm>
#include <iterator>
#include <new>
#include <string>

namespace TBVNonPara::c {

void say(tbv_error* error, std::string_view text) noexcept {
    if (error == nullptr) {
        return;
    }
    const std::size_t length = std::min(text.size(), std::size(error->text) - 1);
    std::ranges::copy(text.substr(0, length), std::begin(error->text));
    error->text[length] = '\0';
}

tbv_status statusOfException(tbv_error* error) noexcept {
    try {
        throw;
    } catch (const BadArgument& wrong) {
        say(error, wrong.what());
        return TBV_BAD_ARGUMENT;
    } catch (const std::invalid_argument& wrong) {
        say(error, wrong.what());
        return TBV_BAD_DATA;
    } catch (const Interrupted&) {
        say(error, tbv_status_text(TBV_INTERRUPTED));
        return TBV_INTERRUPTED;
    } catch (const std::bad_alloc&) {
        say(error, tbv_status_text(TBV_OUT_OF_MEMORY));
        return TBV_OUT_OF_MEMORY;
    } catch (const std::exception& fault) {
        say(error, fault.what());
    } catch (...) {
        say(error, tbv_status_text(TBV_INTERNAL));
    }
    return TBV_INTERNAL;
}

void requirePointer(const void* pointer, const char* name) {
    if (pointer == nullptr) {
        throw BadArgument(std::string(name) + " is a null pointer.");
    }
}

}  // namespace TBVNonPara::c
