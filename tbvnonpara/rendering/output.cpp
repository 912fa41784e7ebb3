#include "tbvnonpara/rendering/output.hpp"

#include <cerrno>
#include <system_error>

namespace TBVNonPara::rendering {

namespace {

[[noreturn]] void fail() {
    throw std::system_error(errno, std::generic_category());
}

}  // namespace

void Output::flush() {
    errno = 0;
    if (std::fwrite(m_Pending.data(), 1, m_Pending.size(), m_File) != m_Pending.size()) {
        fail();
    }
    m_Pending.clear();
}

void Output::finish() {
    flush();
    if (std::fflush(m_File) != 0) {
        fail();
    }
}

}  // namespace TBVNonPara::rendering
