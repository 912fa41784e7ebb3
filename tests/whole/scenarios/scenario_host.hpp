#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "tbvnonpara/core/cell_value.hpp"
#include "tbvnonpara/core/enumerations.hpp"
#include "tbvnonpara/host/Application.hpp"

namespace TBVNonPara::Scenarios {

/// One request object, however the host's clients reach it: the nine members of clsNonPara.
class Request {
 public:
    virtual ~Request() = default;

    virtual void LetMethod(TBVNPMethod method) = 0;
    virtual void LetHeaders(bool headers) = 0;
    virtual void LetOutputDescriptives(bool outputDescriptives) = 0;
    virtual void LetIgnoreTies(bool ignoreTies) = 0;
    virtual void LetTails(TBVNPTails tails) = 0;
    virtual void LetYRange(std::string_view address) = 0;
    virtual void LetXRange(std::string_view address) = 0;
    virtual void LetOutputRange(std::string_view address) = 0;
    virtual void Results(bool OverWrite) = 0;
};

/// All that the scenarios ask of a host beyond its application object: a new document for each scenario, with
/// the scratch workbook beside it.
class ScenarioHost {
 public:
    virtual ~ScenarioHost() = default;

    /// Gives the user's document another sheet, with these cells from A1 on. A text stays a text.
    virtual void addSheet(std::string_view name, const ValueGrid& cells) = 0;
    [[nodiscard]] virtual std::unique_ptr<Request> createRequest() = 0;
    [[nodiscard]] virtual const Application& application() const = 0;

    /// Where the last report was pasted, for example "Results!A1:D9" or "'Data (2)'!A1:D9"; empty before the
    /// first.
    [[nodiscard]] virtual std::string reportAddress() const = 0;
    /// The formatting that the last report asked for, one call a text: "FormatBody A7:D7 False".
    [[nodiscard]] virtual std::vector<std::string> formatting() const = 0;

    /// Whether a cell can hold an empty text as its value; elsewhere such a cell is blank.
    [[nodiscard]] virtual bool keepsEmptyTexts() const { return true; }
};

/// The host that the scenarios of this program run on.
[[nodiscard]] std::unique_ptr<ScenarioHost> createScenarioHost();

}  // namespace TBVNonPara::Scenarios
