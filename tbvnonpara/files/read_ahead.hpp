#pragma once

#include <memory>

#include "tbvnonpara/files/container.hpp"

namespace TBVNonPara::workbook {

/// A part that a thread of its own unpacks while what is there already is read. A part of a few hundred
/// kilobytes needs none. An error of the part is raised where it is reached.
[[nodiscard]] std::unique_ptr<PartStream> readAhead(std::unique_ptr<PartStream> part);

}  // namespace TBVNonPara::workbook
