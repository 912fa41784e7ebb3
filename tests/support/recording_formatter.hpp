#pragma once

#include <memory>
#include <string>
#include <vector>

#include "tbvnonpara/companion/CompanionLibrary.hpp"
#include "tbvnonpara/core/grid.hpp"
#include "tests/support/watched_host.hpp"

namespace TBVNonPara::Support {

/// The formatting that a report asks for, in order, one call a line:
///     FormatTitle A1:A3 True        NumberFormat B7:C7 "0"
///     FormatTable A6:D6 False       HorizontalAlignment B6:E6 CentreAcrossSelection
///     FormatBody A7:D7 False        Subscript A6 2 1 True
/// What the formatter itself does to a range is not recorded.
struct FormattingRecord {
    std::vector<std::string> calls;
    bool insideFormatter = false;
};

inline std::string alignmentName(const std::string& number) {
    if (number == std::to_string(AlignCentreAcrossSelection)) {
        return "CentreAcrossSelection";
    }
    return number == std::to_string(AlignCentre) ? "Centre" : number;
}

/// Writes down each operation of a formatter, then has it done.
class RecordingFormatter : public ReportFormatter {
 public:
    RecordingFormatter(ObjectRef<ReportFormatter> formatter, std::shared_ptr<FormattingRecord> record)
        : m_Formatter(std::move(formatter)), m_Record(std::move(record)) {}

    void FormatTable(const RangeRef& range, bool flag) const override {
        record("FormatTable", range, flag);
        quietly([&] { m_Formatter->FormatTable(range, flag); });
    }
    void FormatBody(const RangeRef& range, bool flag) const override {
        record("FormatBody", range, flag);
        quietly([&] { m_Formatter->FormatBody(range, flag); });
    }
    void FormatTitle(const RangeRef& range, bool flag) const override {
        record("FormatTitle", range, flag);
        quietly([&] { m_Formatter->FormatTitle(range, flag); });
    }

 private:
    void record(std::string operation, const RangeRef& range, bool flag) const {
        const HostCall call{{}, range, {}};
        m_Record->calls.push_back(std::move(operation) + ' ' + call.address() + (flag ? " True" : " False"));
    }

    void quietly(const auto& formatting) const {
        struct Inside {
            explicit Inside(bool& flag) : m_Flag(flag) { m_Flag = true; }
            ~Inside() { m_Flag = false; }
            bool& m_Flag;
        } inside(m_Record->insideFormatter);
        formatting();
    }

    ObjectRef<ReportFormatter> m_Formatter;
    std::shared_ptr<FormattingRecord> m_Record;
};

/// A watch that writes down number formats, alignments and subscripts.
inline Watch recordFormats(std::shared_ptr<FormattingRecord> record) {
    return [record = std::move(record)](const HostCall& call) {
        if (record->insideFormatter) {
            return;
        }
        if (call.operation == "Range.LetNumberFormat") {
            record->calls.push_back("NumberFormat " + call.address() + ' ' + call.details);
        } else if (call.operation == "Range.LetHorizontalAlignment") {
            record->calls.push_back("HorizontalAlignment " + call.address() + ' ' +
                                    alignmentName(call.details));
        } else if (call.operation == "Range.LetCharactersFontSubscript") {
            record->calls.push_back("Subscript " + call.address() + ' ' + call.details);
        }
    };
}

/// The companions with their host watched and their formatter recorded.
inline CompanionLibrary recordFormatting(CompanionLibrary companions,
                                         const std::shared_ptr<FormattingRecord>& record) {
    companions.application = watchHost(companions.application, recordFormats(record));
    companions.createReportFormatter = [create = companions.createReportFormatter, record] {
        return makeObject<RecordingFormatter>(create(), record);
    };
    return companions;
}

}  // namespace TBVNonPara::Support
