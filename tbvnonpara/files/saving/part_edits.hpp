#pragma once

#include <string>
#include <string_view>

namespace TBVNonPara::workbook {

// Texts of a part after a change; everything else in them stays the same bytes. Errors name the part.

/// With an element in front of the end of the last one that bears the parent's name.
[[nodiscard]] std::string withLastChild(const std::string& text, std::string_view part,
                                        std::string_view parent, const std::string& element);

/// Without the root's children that have an attribute of this value, in any case.
[[nodiscard]] std::string withoutElements(const std::string& text, std::string_view part,
                                          std::string_view name, std::string_view value);

/// The prefix of the root element, "x:" or nothing.
[[nodiscard]] std::string rootPrefix(const std::string& text, std::string_view part);

/// An attribute with a blank in front, its value escaped.
[[nodiscard]] std::string xmlAttribute(std::string_view name, std::string_view value);

}  // namespace TBVNonPara::workbook
