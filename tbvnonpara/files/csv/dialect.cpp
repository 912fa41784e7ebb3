#include "tbvnonpara/files/csv/dialect.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <map>
#include <vector>

#include "tbvnonpara/core/utf8.hpp"

namespace TBVNonPara::workbook {

namespace {

constexpr std::string_view candidates = "\t;|,";
constexpr std::size_t comma = 3;
constexpr std::size_t longestSample = 65'536;
constexpr std::size_t mostRecords = 500;

/// One record of a sample: how often each candidate stands outside its quotes, and what those hold.
struct Record {
    std::array<int, candidates.size()> counts{};
    bool beginsQuoted = false;
    bool isAllQuoted = true;  ///< nothing but candidates stands outside quotes
};

constexpr bool isDigit(char c) noexcept {
    return c >= '0' && c <= '9';
}

/// Walks the sample once.
class Sample {
 public:
    Sample(std::string_view text, std::string_view comment, std::string_view marks = candidates)
        : m_Text(text.substr(0, longestSample)), m_Comment(comment), m_Marks(marks) {
        for (std::size_t i = 0; i < m_Text.size() && m_Records.size() < mostRecords; ++i) {
            look(i);
        }
        // A record that the sample's end cuts is no evidence, unless it is all there is.
        if (text.size() <= longestSample || m_Records.empty()) {
            endRecord();
        }
    }

    /// The share of records that have the most frequent number of this delimiter, if they have any.
    [[nodiscard]] double share(std::size_t candidate) const {
        std::map<int, int> frequencies;
        for (const Record& record : m_Records) {
            if (record.counts[candidate] > 0) {
                frequencies[record.counts[candidate]] += 1;
            }
        }
        int most = 0;
        for (const auto& [count, records] : frequencies) {
            most = std::max(most, records);
        }
        return m_Records.empty() ? 0 : static_cast<double>(most) / static_cast<double>(m_Records.size());
    }

    /// Missing in the header and in half of the records below it: it stands in some texts of one column.
    [[nodiscard]] bool isStray(std::size_t candidate) const {
        if (m_Records.empty() || m_Records.front().counts[candidate] > 0) {
            return false;
        }
        const auto without =
            std::count_if(m_Records.begin() + 1, m_Records.end(),
                          [candidate](const Record& record) { return record.counts[candidate] == 0; });
        return 2 * static_cast<std::size_t>(without) >= m_Records.size() - 1;
    }

    /// One column of numbers with decimal commas under a heading without one.
    [[nodiscard]] bool commasAreDecimal() const {
        return m_CommasBetweenDigits && !m_Records.empty() && m_Records.front().counts[comma] == 0 &&
               std::ranges::all_of(m_Records, [](const Record& record) { return record.counts[comma] <= 1; });
    }

    /// A header of quoted labels above rows of as many fields, or above named rows of one more; the marks
    /// are one.
    [[nodiscard]] bool isTableUnderQuotedLabels() const {
        if (m_Records.size() < 2 || !m_Records.front().isAllQuoted || !m_Records.front().beginsQuoted) {
            return false;
        }
        const int above = m_Records.front().counts.front();
        const int below = m_Records[1].counts.front();
        const bool named = below == above + 1;
        return below > 0 && (named || below == above) &&
               std::all_of(m_Records.begin() + 1, m_Records.end(), [=](const Record& record) {
                   return record.counts.front() == below && (record.beginsQuoted || !named);
               });
    }

 private:
    void look(std::size_t i) {
        const char c = m_Text[i];
        if (m_Blank && !m_Comment.empty() && m_Text.substr(i).starts_with(m_Comment) &&
            (i == 0 || m_Text[i - 1] == '\n' || m_Text[i - 1] == '\r')) {
            m_InComment = true;
        }
        if (m_InComment) {
            m_InComment = c != '\n' && c != '\r';
            return;
        }
        if (m_Quoted) {
            m_Quoted = c != '"';
            return;
        }
        if (c == '\n' || c == '\r') {
            endRecord();
            return;
        }
        const std::size_t candidate = m_Marks.find(c);
        if (candidate != std::string_view::npos) {
            m_Record.counts[candidate] += 1;
            m_CommasBetweenDigits = m_CommasBetweenDigits && (candidate != comma || betweenDigits(i));
        }
        // A doubled quote inside a quoted field closes and opens it again, which changes nothing here.
        m_Quoted = c == '"' && (m_Blank || m_MayOpen);
        m_Record.beginsQuoted = m_Record.beginsQuoted || (m_Quoted && m_Blank);
        m_Record.isAllQuoted = m_Record.isAllQuoted && (m_Quoted || candidate != std::string_view::npos);
        m_MayOpen = candidate != std::string_view::npos || c == '"';
        m_Blank = false;
    }

    [[nodiscard]] bool betweenDigits(std::size_t i) const {
        return i > 0 && isDigit(m_Text[i - 1]) && i + 1 < m_Text.size() && isDigit(m_Text[i + 1]);
    }

    void endRecord() {
        if (!m_Blank) {
            m_Records.push_back(m_Record);
        }
        m_Record = {};
        m_Blank = true;
        m_MayOpen = false;
    }

    std::string_view m_Text;
    std::string_view m_Comment;
    bool m_InComment = false;
    std::string_view m_Marks;
    std::vector<Record> m_Records;
    Record m_Record;
    bool m_Blank = true;
    bool m_MayOpen = false;
    bool m_Quoted = false;
    bool m_CommasBetweenDigits = true;
};

}  // namespace

std::optional<char> sniffDelimiter(std::string_view text, std::string_view comment) {
    // Blanks stand in texts, too, so only a table that shows with its quotes what its fields are is divided.
    if (Sample(text, comment, " ").isTableUnderQuotedLabels()) {
        return ' ';
    }
    const Sample sample(text, comment);
    const bool decimalCommas = sample.commasAreDecimal();
    std::optional<char> best;
    double bestShare = 0;
    for (std::size_t candidate = 0; candidate < candidates.size(); ++candidate) {
        const bool out = sample.isStray(candidate) || (candidate == comma && decimalCommas);
        const double share = out ? 0 : sample.share(candidate);
        if (share > bestShare) {
            best = candidates[candidate];
            bestShare = share;
        }
    }
    return best;
}

std::optional<DelimiterLine> delimiterLine(std::string_view text) noexcept {
    constexpr std::string_view key = "sep=";
    const std::string_view line = text.substr(0, text.find_first_of("\r\n"));
    if (line.size() != key.size() + 1 || !equalIgnoringCase(line.substr(0, key.size()), key)) {
        return std::nullopt;
    }
    const std::string_view rest = text.substr(line.size());
    const std::size_t end = rest.starts_with("\r\n") ? 2 : std::min<std::size_t>(rest.size(), 1);
    return DelimiterLine{line.back(), line.size() + end};
}

}  // namespace TBVNonPara::workbook
