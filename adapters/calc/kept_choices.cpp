#include "adapters/calc/kept_choices.hpp"

#include <algorithm>
#include <array>
#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/configuration/theDefaultProvider.hpp>
#include <com/sun/star/container/XNameReplace.hpp>
#include <com/sun/star/util/XChangesBatch.hpp>

#include "tbvnonpara/json/figures.hpp"
#include "tbvnonpara/request/tests_offered.hpp"

namespace TBVNonPara::calc {

namespace {

using css::uno::Any;

constexpr auto choicesNode = "/org.tbvnonpara.calc/Choices";
constexpr std::array<std::string_view, 3> directionWords{"two", "greater", "less"};

template <typename Interface>
Reference<Interface> choices(const Context& context, std::string_view kind) {
    const css::beans::PropertyValue path("nodepath", 0, Any(OUString::createFromAscii(choicesNode)),
                                         css::beans::PropertyState_DIRECT_VALUE);
    const auto provider = css::configuration::theDefaultProvider::get(context);
    return {provider->createInstanceWithArguments(fromUtf8(kind), sequenceOf(Any(path))),
            css::uno::UNO_QUERY_THROW};
}

/// Reads values where they are what they should be, and else leaves those that there are.
class ChoicesReader {
 public:
    explicit ChoicesReader(const Reference<css::container::XNameAccess>& values) : m_Values(values) {}

    void read(const char* name, bool& value) const { at(name) >>= value; }

    [[nodiscard]] std::string word(const char* name) const {
        OUString value;
        at(name) >>= value;
        return toUtf8(value);
    }

 private:
    [[nodiscard]] Any at(const char* name) const {
        return m_Values->getByName(OUString::createFromAscii(name));
    }

    Reference<css::container::XNameAccess> m_Values;
};

void readTest(const ChoicesReader& values, AnalysisSettings& settings) {
    const auto test = std::ranges::find(offeredTests(), values.word("Test"), &OfferedTest::name);
    if (test != offeredTests().end()) {
        settings.method = test->method;
    }
    const auto* const tails = std::ranges::find(directionWords, values.word("Alternative"));
    if (tails != directionWords.end()) {
        settings.tails = static_cast<TBVNPTails>(tails - directionWords.begin());
    }
}

void readDetails(const ChoicesReader& values, DetailSettings& details) {
    values.read("Details", details.wanted);
    values.read("Picture", details.picture);
    details.adjustment = adjustmentNamed(values.word("Adjustment")).value_or(details.adjustment);
    if (const std::string level = values.word("Confidence"); levelIn(level)) {
        details.confidence = level;
    }
}

void write(const Reference<css::container::XNameReplace>& values, const AnalysisSettings& settings) {
    const auto put = [&](const char* name, const Any& value) {
        values->replaceByName(OUString::createFromAscii(name), value);
    };
    const auto putWord = [&](const char* name, std::string_view word) { put(name, Any(fromUtf8(word))); };
    putWord("Test", offeredTests()[static_cast<std::size_t>(settings.method)].name);
    putWord("Alternative", directionWords.at(static_cast<std::size_t>(settings.tails)));
    put("Labels", Any(settings.headers));
    put("Descriptives", Any(settings.descriptives));
    put("ZerosUnranked", Any(settings.ignoreTies));
    put("Live", Any(settings.liveFigures));
    put("Details", Any(settings.details.wanted));
    putWord("Confidence", settings.details.confidence);
    putWord("Adjustment", adjustmentWord(settings.details.adjustment));
    put("Picture", Any(settings.details.picture));
}

}  // namespace

AnalysisSettings keptChoices(const Context& context) {
    AnalysisSettings settings;
    try {
        const ChoicesReader values(
            choices<css::container::XNameAccess>(context, "com.sun.star.configuration.ConfigurationAccess"));
        readTest(values, settings);
        values.read("Labels", settings.headers);
        values.read("Descriptives", settings.descriptives);
        values.read("ZerosUnranked", settings.ignoreTies);
        values.read("Live", settings.liveFigures);
        readDetails(values, settings.details);
    } catch (const css::uno::Exception&) {
        // The dialog opens all the same, with the choices that were read.
    }
    return settings;
}

void keepChoices(const Context& context, const AnalysisSettings& settings) {
    try {
        const auto values = choices<css::container::XNameReplace>(
            context, "com.sun.star.configuration.ConfigurationUpdateAccess");
        write(values, settings);
        query<css::util::XChangesBatch>(values)->commitChanges();
    } catch (const css::uno::Exception&) {
        // An administrator may have locked the configuration: the document remembers its settings itself.
    }
}

}  // namespace TBVNonPara::calc
