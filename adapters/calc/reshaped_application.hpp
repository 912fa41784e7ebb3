#pragma once

#include <array>
#include <memory>

#include "adapters/calc/calc_application.hpp"
#include "adapters/calc/user_table.hpp"

namespace TBVNonPara::calc {

/// What a request works with whose data ranges are read as the columns that were made of them. Its reports
/// name the user's ranges; the columns stand on no sheet.
[[nodiscard]] CompanionLibrary reshapedCompanions(const std::shared_ptr<Session>& session,
                                                  const UserTable& table, reshaping::Reshaped reshaped,
                                                  const AnalysisSettings& settings);

}  // namespace TBVNonPara::calc
