#include "adapters/calc/refusal_words.hpp"

#include <algorithm>
#include <array>

namespace TBVNonPara::calc {

namespace {

/// What is wrong with a table in German; the English words are the refusals' own.
struct GermanReason {
    reshaping::Reason reason;
    std::string_view text;
};

/// Percent signs stand for the facts.
// clang-format off
constexpr auto germanReasons = std::to_array<GermanReason>({
    {reshaping::Reason::NotANumber, "% enthält keine Zahl; jeder Wert muss eine Zahl sein."},
    {reshaping::Reason::ValuesMissing, "Fehlende Werte in %: % von %, zuerst in %."},
    {reshaping::Reason::NamesMissing, "Zeilen ohne Namen in %: %, zuerst %."},
    {reshaping::Reason::NoGroup, "% nennt keine Gruppe."},
    {reshaping::Reason::OneGroup, "% nennt nur eine Gruppe: %."},
    {reshaping::Reason::TooManyGroups, "% nennt % Gruppen, %; der Test vergleicht zwei."},
    {reshaping::Reason::BlocksIncomplete, "Unvollständige Blöcke in %: %, zuerst „%“ ohne einen Wert von „%“."},
    {reshaping::Reason::SecondValue, "Der Block „%“ in % hat zwei Werte von „%“: % und %; jeder Block nimmt von jeder Gruppe einen."},
    {reshaping::Reason::NothingLeft, "Von % bleibt kein Wert übrig."},
    {reshaping::Reason::UnequalColumns, "% hat % Zeilen, % dagegen %; die Zeilen gehören zusammen und müssen gleich viele sein."},
});
// clang-format on

std::string inGerman(const reshaping::Refusal& refusal) {
    const auto* const known = std::ranges::find(germanReasons, refusal.reason(), &GermanReason::reason);
    return known == germanReasons.end() ? refusal.description() : filledIn(known->text, refusal.facts());
}

}  // namespace

std::string remedyText(const DialogTexts& texts, reshaping::Remedy remedy) {
    switch (remedy) {
        case reshaping::Remedy::OmitMissing:
            return std::string(texts.omitMissing);
        case reshaping::Remedy::PickGroups:
            return std::string(texts.tickTwo);
        case reshaping::Remedy::NameBlocks:
            return std::string(texts.chooseBlockRange);
        case reshaping::Remedy::SplitValues:
            return std::string(texts.splitValues);
        case reshaping::Remedy::CorrectData:
        case reshaping::Remedy::SayHeaders:
            break;
    }
    return {};
}

std::string refusalWords(const reshaping::Refusal& refusal, std::string_view language) {
    const std::string remedy = remedyText(dialogTexts(language), refusal.remedy());
    const std::string words = isGerman(language) ? inGerman(refusal) : refusal.description();
    return words + (remedy.empty() ? "" : " ") + remedy;
}

}  // namespace TBVNonPara::calc
