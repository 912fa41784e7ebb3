#include "tbvnonpara/workbook/cell_block.hpp"

#include <algorithm>
#include <bit>
#include <utility>

namespace TBVNonPara::workbook {

namespace {

/// Fewer cells stay values: a table of thousands of short columns would only take more.
constexpr std::size_t worthNumbers = 64;

bool isNumber(const CellValue& value) noexcept {
    return std::holds_alternative<double>(value);
}

/// Copies values; numbers and texts, by far the most, without the detour through the variant's table of
/// copiers.
void copyValues(std::span<const CellValue> from, CellValue* to) {
    for (const CellValue& value : from) {
        if (const auto* number = std::get_if<double>(&value)) {
            *to = *number;
        } else if (const auto* text = std::get_if<Text>(&value)) {
            *to = *text;
        } else {
            *to = value;
        }
        ++to;
    }
}

void growTo(std::size_t place, std::vector<CellValue>& values) {
    if (values.size() <= place) {
        if (values.capacity() <= place) {
            values.reserve(std::bit_ceil(place + 1));
        }
        values.resize(place + 1);
    }
}

}  // namespace

std::size_t CellBlock::firstUsed() const noexcept {
    if (m_Numbers != nullptr) {
        return 0;
    }
    return static_cast<std::size_t>(std::ranges::find_if_not(m_Values, isEmpty) - m_Values.begin());
}

void CellBlock::set(std::size_t place, CellValue value, bool goesOn) {
    const auto* const number = std::get_if<double>(&value);
    if (number != nullptr && m_Numbers == nullptr && m_Values.empty() && place == 0 && goesOn) {
        beginNumbers();
    }
    if (m_Numbers != nullptr && number != nullptr && place <= m_Numbers->size()) {
        std::vector<double>& numbers = ownNumbers();
        if (place == numbers.size()) {
            numbers.push_back(*number);
        } else {
            numbers[place] = *number;
        }
        return;
    }
    becomeValues();
    if (goesOn && m_Values.empty()) {
        m_Values.reserve(rows);
    }
    if (place == m_Values.size()) {
        m_Values.push_back(std::move(value));
    } else {
        growTo(place, m_Values);
        m_Values[place] = std::move(value);
    }
    if (m_Values.size() == worthNumbers) {
        becomeNumbersWhenAlone();
    }
}

void CellBlock::write(std::size_t place, std::span<const CellValue> values) {
    const bool alone = place <= size() && std::ranges::all_of(values, isNumber);
    if (alone && m_Numbers == nullptr && m_Values.empty() && values.size() >= worthNumbers) {
        beginNumbers();
    }
    if (alone && m_Numbers != nullptr) {
        std::vector<double>& numbers = ownNumbers();
        numbers.resize(std::max(numbers.size(), place + values.size()));
        std::ranges::transform(values, numbers.begin() + static_cast<std::ptrdiff_t>(place),
                               [](const CellValue& value) { return std::get<double>(value); });
        return;
    }
    becomeValues();
    growTo(place + values.size() - 1, m_Values);
    copyValues(values, m_Values.data() + place);
    dropEmptyEnd();
}

std::size_t CellBlock::read(std::size_t place, std::span<CellValue> values) const {
    if (place >= size()) {
        return 0;
    }
    const std::size_t cells = std::min(values.size(), size() - place);
    if (m_Numbers != nullptr) {
        std::ranges::copy(std::span(*m_Numbers).subspan(place, cells), values.begin());
    } else {
        copyValues(this->values().subspan(place, cells), values.data());
    }
    return cells;
}

void CellBlock::clear(std::size_t from, std::size_t end) {
    end = std::min(end, size());
    if (from >= end) {
        return;
    }
    if (from == 0 && end == size()) {
        *this = CellBlock();
        return;
    }
    if (m_Numbers != nullptr && end == size()) {
        ownNumbers().resize(from);
        return;
    }
    becomeValues();
    for (std::size_t place = from; place < end; ++place) {
        m_Values[place] = Empty();
    }
    dropEmptyEnd();
}

std::size_t CellBlock::memory() const noexcept {
    constexpr std::size_t head = sizeof(std::vector<double>) + 2 * sizeof(void*);
    return m_Values.capacity() * sizeof(CellValue) +
           (m_Numbers == nullptr ? 0 : head + m_Numbers->capacity() * sizeof(double));
}

std::vector<double>& CellBlock::ownNumbers() {
    if (m_Numbers.use_count() > 1) {
        const std::shared_ptr<std::vector<double>> shared = std::move(m_Numbers);
        beginNumbers();
        m_Numbers->assign(shared->begin(), shared->end());
    }
    return *m_Numbers;
}

void CellBlock::beginNumbers() {
    m_Numbers = std::make_shared<std::vector<double>>();
    m_Numbers->reserve(rows);
}

void CellBlock::becomeNumbersWhenAlone() {
    if (!std::ranges::all_of(m_Values, isNumber)) {
        return;
    }
    beginNumbers();
    for (const CellValue& value : m_Values) {
        m_Numbers->push_back(std::get<double>(value));
    }
    std::vector<CellValue>().swap(m_Values);
}

void CellBlock::becomeValues() {
    if (m_Numbers != nullptr) {
        m_Values.reserve(rows);
        m_Values.assign(m_Numbers->begin(), m_Numbers->end());
        m_Numbers.reset();
    }
}

void CellBlock::dropEmptyEnd() {
    while (!m_Values.empty() && isEmpty(m_Values.back())) {
        m_Values.pop_back();
    }
}

}  // namespace TBVNonPara::workbook
