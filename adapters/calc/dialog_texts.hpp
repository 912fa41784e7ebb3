#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

#include "adapters/calc/live_figures.hpp"
#include "tbvnonpara/core/enumerations.hpp"
#include "tbvnonpara/request/error_causes.hpp"
#include "tbvnonpara/reshaping/account.hpp"

namespace TBVNonPara::calc {

/// What stands in the dialog, in one language. A tilde marks the letter that is pressed with Alt.
struct DialogTexts {
    std::string_view title;
    std::string_view test;
    std::array<std::string_view, 8> tests;   ///< by the tests' numbers
    std::array<std::string_view, 8> sheets;  ///< what their reports' sheets are called
    std::string_view alternative;
    std::string_view firstRange;
    std::string_view secondRange;
    std::string_view dataRange;
    std::string_view groupRanges;
    std::string_view groupingRange;
    std::string_view groupsInColumn;
    std::string_view valueRange;
    std::string_view groupRange;
    std::string_view blockRange;
    std::string_view groupTicks;     ///< the list where a test takes several groups
    std::string_view twoGroupTicks;  ///< and where it takes two
    std::string_view moveUp;
    std::string_view moveDown;
    std::string_view tickTwo;
    std::string_view tickSeveral;
    std::string_view chooseGroupRange;
    std::string_view chooseBlockRange;
    std::string_view noRange;  ///< with what was written in place of %
    std::string_view oneColumn;
    std::string_view visibleRows;  ///< with the rows that are hidden and all rows in place of % and %
    std::string_view missing;      ///< with what would be left out in place of %
    std::array<std::string_view, 4> units;  ///< by the units: how many are missing, and of how many
    std::string_view unnamedRows;
    std::string_view splitValues;  ///< what helps where names stand beside the values
    std::string_view omitMissing;  ///< what helps against missing values
    std::string_view report;
    std::string_view newSheet;
    std::string_view cell;
    std::string_view overwrite;
    std::string_view labels;
    std::string_view descriptives;
    std::string_view ignoreTies;
    std::string_view details;
    std::string_view confidence;
    std::string_view adjustment;
    std::array<std::string_view, 4> adjustments;  ///< by their numbers
    std::string_view chooseConfidence;
    std::string_view withoutDetails;  ///< with the reason in place of %
    std::string_view detailsCancelled;
    std::string_view picture;
    std::string_view withoutPicture;   ///< with the reason in place of %
    std::string_view withoutBoth;      ///< details and picture, for one reason
    std::string_view besideCancelled;  ///< the picture, or both
    std::string_view live;             ///< figures as formulas
    std::string_view notLive;          ///< the same where it cannot be, with the reason in place of %
    std::array<std::string_view, 4> liveObstacles;  ///< what settings say against it, by their numbers from 1
    std::string_view withoutLive;                   ///< with the reason in place of %
    std::array<std::string_view, 3> liveFailures;   ///< what a run finds, by the numbers that follow
    std::string_view partlyLive;                    ///< with what stays a number in place of %
    std::string_view pickTitle;
    std::string_view ok;
    std::string_view close;
    std::string_view cancel;
    std::string_view help;
    std::string_view noBrowser;
    std::string_view running;
    std::string_view countingDetails;
    std::string_view cancelled;
    std::string_view rowsChanged;
    std::string_view severalAreas;
    std::string_view restart;
    std::string_view noReportHere;
    std::string_view rangesLost;
    std::string_view reportChanged;  ///< asks whether to replace it
    std::string_view reportGrows;    ///< with the cell in its way in place of %
    std::string_view notRepeated;    ///< with the reason in place of %
};

/// The texts of a language ("de", "en-US"); English where there are none.
[[nodiscard]] const DialogTexts& dialogTexts(std::string_view language);

[[nodiscard]] bool isGerman(std::string_view language) noexcept;

/// The text with these in place of its percent signs, one after the other.
[[nodiscard]] std::string filledIn(std::string_view text, std::span<const std::string> facts);

/// The text of the box about hidden rows.
[[nodiscard]] std::string visibleRowsLabel(const DialogTexts& texts, std::int32_t hidden, std::int32_t all);

/// The text of the box about missing values.
[[nodiscard]] std::string missingLabel(const DialogTexts& texts, const reshaping::Account& account);

/// The text of the box about figures that follow the data.
[[nodiscard]] std::string liveLabel(const DialogTexts& texts, LiveObstacle obstacle);

/// What became of them where it is not what was wanted; else nothing.
[[nodiscard]] std::string liveWords(const DialogTexts& texts, const LiveOutcome& outcome);

/// What two samples are called; empty where they have no names.
struct SampleNames {
    std::string first;
    std::string second;

    friend bool operator==(const SampleNames&, const SampleNames&) = default;
};

/// The three alternatives in the words of a test, and with the names of its samples, shortened, where they
/// have some: both ways, first greater, first less.
using Alternatives = std::array<std::string, 3>;
[[nodiscard]] Alternatives alternativesOf(TBVNPMethod method, bool secondRange, const SampleNames& names,
                                          std::string_view language);

/// What a cause is called in German, a percent sign for the cell that the error names; empty for an unknown
/// one.
[[nodiscard]] std::string_view germanWords(Cause cause) noexcept;

/// An error in plain words: what is wrong and what to do. A number that nothing is known of is named alone.
[[nodiscard]] std::string plainWords(const Error& error, TBVNPMethod method, const RequestNames& names,
                                     std::string_view language);

}  // namespace TBVNonPara::calc
