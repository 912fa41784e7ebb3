#include "adapters/calc/outcome_words.hpp"

#include <array>

namespace TBVNonPara::calc {

std::string wordsOnWhatIsMissing(const Outcome& outcome, const DialogTexts& texts) {
    std::string words;
    const auto add = [&](const std::string& sentence) {
        words += (words.empty() || sentence.empty() ? "" : "\n") + sentence;
    };
    const auto addFor = [&](std::string_view sentence, const std::string& reason) {
        add(reason.empty() ? std::string() : filledIn(sentence, std::array{reason}));
    };
    if (outcome.detailsCancelled) {
        add(std::string(outcome.withoutPicture.empty() ? texts.detailsCancelled : texts.besideCancelled));
    } else if (outcome.withoutDetails == outcome.withoutPicture) {
        addFor(texts.withoutBoth, outcome.withoutDetails);
    } else {
        addFor(texts.withoutDetails, outcome.withoutDetails);
        addFor(texts.withoutPicture, outcome.withoutPicture);
    }
    add(liveWords(texts, outcome.live));
    return words;
}

}  // namespace TBVNonPara::calc
