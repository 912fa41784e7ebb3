#include "tbvnonpara/analysis/table_form.hpp"

#include <algorithm>
#include <iterator>
#include <utility>

#include "tbvnonpara/analysis/table_column.hpp"
#include "tbvnonpara/analysis/user_range.hpp"
#include "tbvnonpara/core/conversions.hpp"
#include "tbvnonpara/reshaping/long_table.hpp"
#include "tbvnonpara/reshaping/wide_table.hpp"

namespace TBVNonPara::analysis {

namespace {

using reshaping::Column;
using reshaping::Unit;
using workbook::EmbeddedApplication;

bool isSequenceOfCategories(const Choices& choices, const ChosenRanges& chosen) {
    const DataShape shape = choices.test->shape;
    const bool codes = shape == DataShape::CodesOrPairs && chosen.x.empty() && chosen.by.empty();
    return (shape == DataShape::Sequence && !choices.cut) || codes;
}

/// What the cells of an area hold beside numbers.
struct Kinds {
    bool numbers = false;
    bool others = false;  ///< texts that read as no number, or #N/A
};

Kinds kindsIn(const EmbeddedApplication& application, const std::string& address, bool headers) {
    Kinds kinds;
    if (address.empty()) {
        return kinds;
    }
    const UserRange range(application, address);
    for (const Rectangle& area : range->areas()) {
        const Rectangle data{area.top + (headers ? 1 : 0), area.left, area.bottom, area.right};
        const Index numbers =
            range->sheet()->values().visitMixed(data, [&](Index, Index, const CellValue& value) {
                const auto* const text = std::get_if<Text>(&value);
                const auto* const error = std::get_if<CellError>(&value);
                kinds.numbers = kinds.numbers || std::holds_alternative<double>(value);
                kinds.others = kinds.others || (text != nullptr && !readAsNumber(text->string())) ||
                               (error != nullptr && *error == CellError::NotAvailable);
            });
        kinds.numbers = kinds.numbers || numbers > 0;
    }
    return kinds;
}

reshaping::Wishes wishesOf(const Choices& choices, const ChosenRanges& chosen) {
    reshaping::Wishes wishes;
    const DataShape shape = choices.test->shape;
    if (shape == DataShape::Blocks) {
        wishes.unit = Unit::Block;
    } else if (isSequenceOfCategories(choices, chosen)) {
        wishes.unit = Unit::Element;
    } else if (takesRows(shape)) {
        wishes.unit = Unit::Pair;
    }
    if (takesManyColumns(shape)) {
        wishes.mostGroups = static_cast<std::size_t>(sheetColumns);
    }
    wishes.groups = choices.groups;
    wishes.missing = reshaping::Missing(choices.missingWords);
    wishes.omitMissing = choices.omitMissing;
    wishes.blanksAllowed = chosen.by.empty() && (shape == DataShape::Groups || wishes.unit == Unit::Element);
    return wishes;
}

/// The column at an address, none at an empty one.
std::optional<Column> columnAt(const EmbeddedApplication& application, const std::string& address,
                               bool headers) {
    std::vector<Column> columns = columnsAt(application, address, headers);
    return columns.empty() ? std::nullopt : std::optional(std::move(columns.front()));
}

}  // namespace

std::vector<Column> columnsAt(const EmbeddedApplication& application, const std::string& address,
                              bool headers) {
    std::vector<Column> columns;
    if (address.empty()) {
        return columns;
    }
    const UserRange range(application, address);
    for (const Rectangle& area : range->areas()) {
        for (Index number = area.left; number <= area.right; ++number) {
            columns.push_back(tableColumn(*range->sheet(), {area.top, number, area.bottom, number}, headers));
        }
    }
    return columns;
}

bool needsReshaping(const EmbeddedApplication& application, const Choices& choices,
                    const ChosenRanges& chosen) {
    if (choices.account || choices.transpose || !chosen.by.empty() || !choices.where.empty() ||
        choices.omitMissing || !choices.missingWords.empty()) {
        return true;
    }
    const Kinds y = kindsIn(application, chosen.y, chosen.headers);
    const Kinds x = kindsIn(application, chosen.x, chosen.headers);
    if (!isSequenceOfCategories(choices, chosen)) {
        return y.others || x.others;
    }
    return y.numbers && y.others &&
           reshaping::holdsNumbers(*columnAt(application, chosen.y, chosen.headers), reshaping::Missing());
}

TableForm::TableForm(const EmbeddedApplication& application, const Choices& choices,
                     const ChosenRanges& chosen)
    : m_Headed(chosen.headers || !chosen.by.empty()),
      m_Wishes(wishesOf(choices, chosen)),
      m_Conditions(application, choices, *UserRange(application, chosen.y)->sheet(), chosen.headers),
      m_Groups(columnAt(application, chosen.by, chosen.headers)),
      m_Blocks(columnAt(application, chosen.block, chosen.headers)),
      m_Second(columnsAt(application, chosen.x, chosen.headers)),
      m_SecondColumns(m_Groups && !takesManyColumns(choices.test->shape) ? 1 : m_Second.size()) {
    for (std::optional<Column>* const column : {&m_Groups, &m_Blocks}) {
        if (*column) {
            m_Conditions.apply(**column);
        }
    }
    for (Column& column : m_Second) {
        m_Conditions.apply(column);
    }
}

std::size_t TableForm::settleConditions(std::vector<Column>& values) const {
    std::size_t unfulfilled = 0;
    for (Column& column : values) {
        unfulfilled = std::max(unfulfilled, m_Conditions.apply(column));
    }
    return unfulfilled;
}

reshaping::Reshaped TableForm::bring(std::vector<Column> values) const& {
    return TableForm(*this).bring(std::move(values));
}

reshaping::Reshaped TableForm::bring(std::vector<Column> values) && {
    const std::size_t unfulfilled = settleConditions(values);
    std::ranges::move(m_Second, std::back_inserter(values));
    reshaping::Reshaped reshaped =
        m_Groups ? reshaping::fromLong({std::move(values.front()), std::move(*m_Groups), std::move(m_Blocks)},
                                       m_Wishes)
                 : reshaping::fromWide(std::move(values), m_Wishes);
    reshaped.account.rows += unfulfilled;
    reshaped.account.unfulfilled = unfulfilled;
    return reshaped;
}

}  // namespace TBVNonPara::analysis
