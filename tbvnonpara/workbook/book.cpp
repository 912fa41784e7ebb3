#include "tbvnonpara/workbook/book.hpp"

#include <algorithm>
#include <utility>

#include "tbvnonpara/core/utf8.hpp"
#include "tbvnonpara/workbook/embedded_application.hpp"
#include "tbvnonpara/workbook/host_error.hpp"

namespace TBVNonPara::workbook {

namespace {

constexpr std::size_t longestSheetName = 31;

constexpr bool mayStandInAName(char c) noexcept {
    const bool control = static_cast<unsigned char>(c) < 0x20U || c == 0x7F;
    return !control && std::string_view("[]:*?/\\").find(c) == std::string_view::npos;
}

void requireSheetName(std::string_view name) {
    if (name.empty() || name != sanitisedSheetName(name)) {
        refuse("A sheet cannot be named \"" + std::string(name) +
               "\": a name has 1 to 31 characters, none of []:*?/\\ and no apostrophe at either end.");
    }
}

std::string listOf(const std::vector<std::shared_ptr<Sheet>>& sheets) {
    std::string names;
    for (const auto& sheet : sheets) {
        names.append(names.empty() ? "\"" : ", \"").append(sheet->name()).append("\"");
    }
    return names.empty() ? "none" : names;
}

}  // namespace

Book::Book(std::string name, Visibility visibility, std::weak_ptr<EmbeddedApplication> application)
    : m_Name(std::move(name)), m_Visibility(visibility), m_Application(std::move(application)) {
}

std::shared_ptr<EmbeddedApplication> Book::application() const {
    std::shared_ptr<EmbeddedApplication> application = m_Application.lock();
    if (application == nullptr || !application->holds(*this)) {
        refuse("The workbook \"" + m_Name + "\" is closed; open it again and name the sheet anew.");
    }
    return application;
}

WorksheetRef Book::GetWorksheets(Long position) const {
    if (position < Long(1) || position > GetWorksheetsCount()) {
        refuse("There is no sheet number " + std::to_string(position.value()) + " in workbook \"" + m_Name +
               "\", which has " + std::to_string(m_Sheets.size()) + ".");
    }
    return m_Sheets[static_cast<std::size_t>(position.value() - 1)];
}

std::shared_ptr<Sheet> Book::find(std::string_view name) const {
    const auto found = std::ranges::find_if(
        m_Sheets, [=](const auto& sheet) { return equalIgnoringCase(sheet->name(), name); });
    return found == m_Sheets.end() ? nullptr : *found;
}

std::shared_ptr<Sheet> Book::sheet(std::string_view name) const {
    std::shared_ptr<Sheet> sheet = find(name);
    if (sheet == nullptr) {
        refuse("There is no sheet \"" + std::string(name) + "\" in workbook \"" + m_Name +
               "\"; the sheets are: " + listOf(m_Sheets) + ".");
    }
    return sheet;
}

std::size_t Book::positionOf(const Worksheet& sheet) const {
    const auto found =
        std::ranges::find(m_Sheets, &sheet, [](const auto& own) -> const Worksheet* { return own.get(); });
    if (found == m_Sheets.end()) {
        refuse("Sheet \"" + sheet.GetName() + "\" does not belong to workbook \"" + m_Name +
               "\"; name a sheet of the same workbook.");
    }
    return static_cast<std::size_t>(found - m_Sheets.begin());
}

void Book::Activate() {
    application()->activateBook(*this);
}

void Book::requireFreeName(std::string_view name, const Sheet* own) const {
    requireSheetName(name);
    if (const std::shared_ptr<Sheet> there = find(name); there != nullptr && there.get() != own) {
        refuse("There is a sheet \"" + std::string(name) + "\" in workbook \"" + m_Name +
               "\" already; choose another name.");
    }
}

std::shared_ptr<Sheet> Book::addSheet(std::string_view name) {
    requireFreeName(name, nullptr);
    return append(name);
}

void Book::renameSheet(Sheet& sheet, std::string_view name) {
    requireFreeName(name, &sheet);
    sheet.setName(name);
}

std::shared_ptr<Sheet> Book::adoptSheet(std::string_view name) {
    return append(name.empty() || find(name) != nullptr ? freeSheetName(name) : std::string(name));
}

std::shared_ptr<Sheet> Book::append(std::string_view name) {
    m_Sheets.push_back(std::make_shared<Sheet>(std::string(name), weak_from_this()));
    if (m_ActiveSheet == nullptr) {
        m_ActiveSheet = m_Sheets.back();
    }
    return m_Sheets.back();
}

std::shared_ptr<Sheet> Book::insertSheet() {
    std::size_t number = m_Sheets.size() + 1;
    while (find("Sheet" + std::to_string(number)) != nullptr) {
        number += 1;
    }
    std::shared_ptr<Sheet> sheet = addSheet("Sheet" + std::to_string(number));
    const auto place = m_Sheets.begin() + static_cast<Index>(positionOf(*m_ActiveSheet));
    std::rotate(place, m_Sheets.end() - 1, m_Sheets.end());
    m_ActiveSheet = sheet;
    return sheet;
}

void Book::removeSheet(const Sheet& sheet) noexcept {
    std::erase_if(m_Sheets, [&](const auto& own) { return own.get() == &sheet; });
    if (m_ActiveSheet.get() == &sheet) {
        m_ActiveSheet = m_Sheets.empty() ? nullptr : m_Sheets.back();
    }
}

void Book::moveSheet(const Sheet& sheet, const Worksheet& after) {
    const std::size_t target = positionOf(after);
    const std::size_t position = positionOf(sheet);
    const auto at = [this](std::size_t i) { return m_Sheets.begin() + static_cast<Index>(i); };
    if (position < target) {
        std::rotate(at(position), at(position + 1), at(target + 1));
    } else if (position > target) {
        std::rotate(at(target + 1), at(position), at(position + 1));
    }
}

void Book::activateSheet(const Sheet& sheet) {
    // A sheet comes to the front together with its workbook.
    application()->activateBook(*this);
    m_ActiveSheet = m_Sheets[positionOf(sheet)];
}

std::string Book::freeSheetName(std::string_view name) const {
    std::string candidate = sanitisedSheetName(name);
    for (int number = 2; find(candidate) != nullptr; ++number) {
        const std::string ending = " (" + std::to_string(number) + ')';
        candidate = sanitisedSheetName(firstCharacters(name, longestSheetName - ending.size())) + ending;
    }
    return candidate;
}

std::string sanitisedSheetName(std::string_view name) {
    std::string sanitised(name);
    std::ranges::replace_if(
        sanitised, [](char c) { return !mayStandInAName(c); }, '_');
    sanitised.erase(0, std::min(sanitised.find_first_not_of('\''), sanitised.size()));
    sanitised = firstCharacters(sanitised, longestSheetName);
    sanitised.erase(sanitised.find_last_not_of('\'') + 1);
    return sanitised.empty() ? "Sheet1" : sanitised;
}

}  // namespace TBVNonPara::workbook
