#include "adapters/calc/reshaped_application.hpp"

#include <iterator>

#include "adapters/calc/reshaped_range.hpp"

namespace TBVNonPara::calc {

namespace {

/// The columns of the first and of the second range.
using BothColumns = std::array<ReshapedColumnsRef, 2>;

class ReshapedApplication : public CalcApplication {
 public:
    ReshapedApplication(const std::shared_ptr<Session>& session, BothColumns columns)
        : CalcApplication(session), m_Session(session), m_Columns(std::move(columns)) {}

    [[nodiscard]] RangeRef GetRange(std::string_view address) const override {
        const std::optional<DataRange> range = m_Session->resolvingFor();
        return range ? makeObject<ReshapedRange>(m_Session, m_Columns.at(static_cast<std::size_t>(*range)))
                     : CalcApplication::GetRange(address);
    }

    [[nodiscard]] RangeRef GetRange(const RangeRef& first, const RangeRef& last) const override {
        const auto* const from = dynamic_cast<const ReshapedRange*>(&*first);
        const auto* const to = dynamic_cast<const ReshapedRange*>(&*last);
        return from != nullptr && to != nullptr ? from->to(*to) : CalcApplication::GetRange(first, last);
    }

 private:
    std::shared_ptr<Session> m_Session;
    BothColumns m_Columns;
};

std::size_t columnsOf(const TableRange& range) {
    std::size_t columns = 0;
    for (const CellArea& area : range.cells.areas) {
        columns += static_cast<std::size_t>(area.columns());
    }
    return columns;
}

/// How many of the columns are those of the first range.
std::size_t firstColumns(const UserTable& table, std::size_t all, const AnalysisSettings& settings) {
    if (settings.groupsInOneColumn) {
        return takesGroups(settings.method) ? all : 1;
    }
    return columnsOf(table.first);
}

BothColumns divided(const UserTable& table, std::vector<reshaping::Column> columns,
                    const AnalysisSettings& settings) {
    const auto second =
        columns.begin() + static_cast<std::ptrdiff_t>(firstColumns(table, columns.size(), settings));
    const bool headers = settings.groupsInOneColumn || settings.headers;
    const TableRange& origin = settings.groupsInOneColumn ? table.first : table.second;
    std::vector<reshaping::Column> others(std::make_move_iterator(second),
                                          std::make_move_iterator(columns.end()));
    columns.erase(second, columns.end());
    BothColumns both;
    both[0] = std::make_shared<ReshapedColumns>(table.first.cells, std::move(columns), headers);
    if (!others.empty()) {
        both[1] = std::make_shared<ReshapedColumns>(origin.cells, std::move(others), headers);
    }
    return both;
}

}  // namespace

CompanionLibrary reshapedCompanions(const std::shared_ptr<Session>& session, const UserTable& table,
                                    reshaping::Reshaped reshaped, const AnalysisSettings& settings) {
    CompanionLibrary companions = calcCompanions(session);
    companions.application =
        makeObject<ReshapedApplication>(session, divided(table, std::move(reshaped.columns), settings));
    return companions;
}

}  // namespace TBVNonPara::calc
