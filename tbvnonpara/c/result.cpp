#include "tbvnonpara/c/result.hpp"

#include <limits>
#include <string_view>
#include <variant>

#include "tbvnonpara/json/figures.hpp"

namespace TBVNonPara::c {

namespace {

using statistics::Figure;
using statistics::FigureList;

bool isAbsent(const Figure& figure) {
    return std::holds_alternative<std::monostate>(figure.value);
}

/// Whether the longest beginning of a path that leads somewhere leads to what does not exist: there is
/// nothing behind it then, and elsewhere the path is a mistake.
bool leadsBehindAbsent(const Figure& all, std::string_view path) {
    const Figure* reached = nullptr;
    for (std::size_t dot = path.find('.'); dot != std::string_view::npos; dot = path.find('.', dot + 1)) {
        const Figure* const further = find(all, path.substr(0, dot));
        if (further == nullptr) {
            break;
        }
        reached = further;
    }
    return reached != nullptr && isAbsent(*reached);
}

struct Found {
    const Figure* figure = nullptr;
    tbv_status status = TBV_BAD_ARGUMENT;
};

Found figureNamed(const tbv_result* result, const char* name) {
    if (result == nullptr || name == nullptr) {
        return {};
    }
    const Figure* const figure = find(result->figures, name);
    if (figure == nullptr) {
        return {nullptr, leadsBehindAbsent(result->figures, name) ? TBV_ABSENT : TBV_UNKNOWN_NAME};
    }
    return {figure, isAbsent(*figure) ? TBV_ABSENT : TBV_OK};
}

tbv_status numberOf(const Figure& figure, double& number) {
    if (const auto* real = std::get_if<double>(&figure.value)) {
        number = *real;
        return TBV_OK;
    }
    if (const auto* whole = std::get_if<std::int64_t>(&figure.value)) {
        number = static_cast<double>(*whole);
        return TBV_OK;
    }
    const Figure* const value = find(figure, "value");
    return value == nullptr || value == &figure ? TBV_WRONG_KIND : numberOf(*value, number);
}

}  // namespace

}  // namespace TBVNonPara::c

tbv_status tbv_result_number(const tbv_result* result, const char* name, double* number) {
    if (number == nullptr) {
        return TBV_BAD_ARGUMENT;
    }
    *number = std::numeric_limits<double>::quiet_NaN();
    const auto [figure, status] = TBVNonPara::c::figureNamed(result, name);
    return status == TBV_OK ? TBVNonPara::c::numberOf(*figure, *number) : status;
}

tbv_status tbv_result_text(const tbv_result* result, const char* name, const char** text) {
    if (text == nullptr) {
        return TBV_BAD_ARGUMENT;
    }
    *text = nullptr;
    const auto [figure, status] = TBVNonPara::c::figureNamed(result, name);
    if (status != TBV_OK) {
        return status;
    }
    const auto* const found = std::get_if<std::string>(&figure->value);
    if (found == nullptr) {
        return TBV_WRONG_KIND;
    }
    *text = found->c_str();
    return TBV_OK;
}

tbv_status tbv_result_count(const tbv_result* result, const char* name, size_t* count) {
    if (count == nullptr) {
        return TBV_BAD_ARGUMENT;
    }
    *count = 0;
    const auto [figure, status] = TBVNonPara::c::figureNamed(result, name);
    if (status != TBV_OK) {
        return status;
    }
    const auto* const list = std::get_if<TBVNonPara::statistics::FigureList>(&figure->value);
    if (list == nullptr) {
        return TBV_WRONG_KIND;
    }
    *count = list->size();
    return TBV_OK;
}

const char* tbv_result_json(const tbv_result* result) {
    if (result == nullptr) {
        return nullptr;
    }
    try {
        std::call_once(result->written,
                       [result] { result->json = TBVNonPara::figureInJson(result->figures); });
        return result->json.c_str();
    } catch (...) {
        return nullptr;
    }
}

void tbv_result_free(tbv_result* result) {
    delete result;
}
