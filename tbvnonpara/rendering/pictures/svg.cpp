#include "tbvnonpara/rendering/pictures/svg.hpp"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>

#include "tbvnonpara/core/display_width.hpp"
#include "tbvnonpara/core/utf8.hpp"
#include "tbvnonpara/rendering/pictures/in_html.hpp"
#include "tbvnonpara/rendering/pictures/picture_style.hpp"

namespace TBVNonPara::rendering {

namespace {

/// Two decimals are finer than a screen; no zeros behind them.
std::string length(double value) {
    std::string text = fmt::format("{:.2f}", value);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) {
        text.pop_back();
    }
    return text == "-0" ? "0" : text;
}

/// 1, 2 or 5 times a power of ten, so that about so many steps fill a span.
double roundStep(double span, double steps) {
    const double rough = span / steps;
    const double power = std::pow(10.0, std::floor(std::log10(rough)));
    for (const double factor : {1.0, 2.0, 5.0}) {
        if (rough <= factor * power) {
            return factor * power;
        }
    }
    return 10 * power;
}

/// Ticks that lie close together far from zero differ late.
std::string tickText(double value) {
    return fmt::format("{:.12g}", value);
}

std::string_view lightColour(std::string_view name) {
    const std::size_t place = lightColours.find("--" + std::string(name) + ':');
    return lightColours.substr(lightColours.find('#', place), 7);
}

/// The rules of a page's picture for readers that know neither names of colours nor rules for what lies
/// within another element. What they say of the picture itself and of its font is the file's own.
std::string styleOfAFile() {
    std::string rules(pictureStyle);
    const auto replaceAll = [&](std::string_view what, std::string_view with) {
        for (std::size_t at = rules.find(what); at != std::string::npos; at = rules.find(what, at)) {
            rules.replace(at, what.size(), with);
        }
    };
    replaceAll("svg ", "");
    replaceAll(" font-family: inherit;", "");
    for (const std::string_view colour : {"ink", "quiet", "line", "faint", "first", "second", "wash"}) {
        replaceAll("var(--" + std::string(colour) + ')', lightColour(colour));
    }
    return rules;
}

/// How wide a text is at most, as it is drawn for a phone.
double textWidth(std::size_t characters) {
    constexpr double widest = 10.5;
    return widest * static_cast<double>(characters);
}

}  // namespace

void Svg::line(double x1, double y1, double x2, double y2, std::string_view cssClass) {
    m_Elements += fmt::format("<path class=\"{}\" d=\"M{} {}L{} {}\"/>\n", cssClass, length(x1), length(y1),
                              length(x2), length(y2));
}

void Svg::rectangle(double x, double y, double w, double h, std::string_view cssClass) {
    m_Elements += fmt::format("<rect class=\"{}\" x=\"{}\" y=\"{}\" width=\"{}\" height=\"{}\"/>\n", cssClass,
                              length(x), length(y), length(w), length(h));
}

void Svg::circle(double x, double y, double radius, std::string_view cssClass) {
    m_Elements += fmt::format("<circle class=\"{}\" cx=\"{}\" cy=\"{}\" r=\"{}\"/>\n", cssClass, length(x),
                              length(y), length(radius));
}

void Svg::text(double x, double y, std::string_view text, std::string_view anchor,
               std::string_view cssClass) {
    m_Elements += fmt::format("<text class=\"{}\" x=\"{}\" y=\"{}\" text-anchor=\"{}\">{}</text>\n", cssClass,
                              length(x), length(y), anchor, inHtml(onOneLine(text)));
}

Drawing Svg::finish(double height, std::string_view name, std::string_view description) const {
    return {height, onOneLine(name), onOneLine(description), m_Elements};
}

std::string figureOf(const Drawing& drawing, std::string_view id) {
    if (drawing.elements.empty()) {
        return "";
    }
    return fmt::format(
        "<figure>\n<svg viewBox=\"0 0 {0} {1}\" role=\"img\" aria-labelledby=\"{2}-name "
        "{2}-description\">\n<title id=\"{2}-name\">{3}</title>\n<desc "
        "id=\"{2}-description\">{4}</desc>\n{5}</svg>\n<figcaption>{4}</figcaption>\n</figure>\n",
        length(Svg::width), length(drawing.height), id, inHtml(drawing.name), inHtml(drawing.description),
        drawing.elements);
}

std::string svgFile(const Drawing& drawing, std::string_view font) {
    return fmt::format(
        "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"{0}\" height=\"{1}\" viewBox=\"0 0 {0} {1}\">\n"
        "<title>{2}</title>\n<desc>{3}</desc>\n<style>\n{4}</style>\n"
        "<rect width=\"{0}\" height=\"{1}\" fill=\"{5}\"/>\n<g font-family=\"{6}\">\n{7}</g>\n</svg>\n",
        length(Svg::width), length(drawing.height), inHtml(drawing.name), inHtml(drawing.description),
        styleOfAFile(), lightColour("paper"), inHtml(font), drawing.elements);
}

Scale::Scale(double lowest, double highest, double from, double to)
    : m_Lowest(lowest), m_Highest(highest), m_From(from), m_To(to) {
    if (!(m_Lowest < m_Highest)) {
        const double margin = std::max(std::abs(m_Lowest) * 0.1, 0.5);
        m_Lowest = lowest - margin;
        m_Highest = lowest + margin;
    }
}

double Scale::at(double value) const {
    // Halves, so that the span of the largest numbers is one too.
    const double part = (value / 2 - m_Lowest / 2) / (m_Highest / 2 - m_Lowest / 2);
    return m_From + part * (m_To - m_From);
}

std::vector<double> Scale::ticks() const {
    constexpr double steps = 5;
    constexpr int mostTicks = 12;
    const double span = m_Highest - m_Lowest;
    const double step = std::isfinite(span) ? roundStep(span, steps) : 0;
    std::vector<double> found;
    if (step > 0 && std::isfinite(step)) {
        const double first = std::ceil(m_Lowest / step);
        for (int i = 0; i < mostTicks && (first + i) * step <= m_Highest; ++i) {
            found.push_back((first + i) * step + 0.0);
        }
    }
    return found;
}

void Scale::drawAxis(Svg& svg, double top, double bottom) const {
    constexpr double below = 18;
    svg.line(m_From, bottom, m_To, bottom, "axis");
    const std::vector<double> values = ticks();
    if (values.empty()) {
        svg.text(m_From, bottom + below, fmt::format("{:.6g}", m_Lowest), "start", "quiet");
        svg.text(m_To, bottom + below, fmt::format("{:.6g}", m_Highest), "end", "quiet");
    }
    const std::size_t every = ticksALabel(values);
    for (std::size_t i = 0; i < values.size(); ++i) {
        const double x = at(values[i]);
        svg.line(x, top, x, bottom, "grid");
        if (i % every == 0) {
            const std::string digits = tickText(values[i]);
            const double half = textWidth(digits.size()) / 2;
            svg.text(std::min(x, Svg::width - half), bottom + below, digits, "middle", "quiet");
        }
    }
}

std::size_t Scale::ticksALabel(const std::vector<double>& values) const {
    if (values.size() < 2) {
        return 1;
    }
    std::size_t longest = 0;
    for (const double value : values) {
        longest = std::max(longest, tickText(value).size());
    }
    const double apart = at(values[1]) - at(values[0]);
    return static_cast<std::size_t>(std::ceil(textWidth(longest + 1) / apart));
}

void Scale::drawUprightAxis(Svg& svg, double left, double right) const {
    svg.line(left, m_To, left, m_From, "axis");
    for (const double tick : ticks()) {
        svg.line(left, at(tick), right, at(tick), "grid");
        svg.text(left - 8, at(tick) + 4, tickText(tick), "end", "quiet");
    }
}

std::string shortened(std::string_view text, std::size_t columns) {
    if (displayWidth(text) <= columns) {
        return std::string(text);
    }
    std::size_t characters = columns;
    while (displayWidth(firstCharacters(text, characters)) + 1 > columns) {
        characters -= 1;
    }
    return std::string(firstCharacters(text, characters)) + "…";
}

}  // namespace TBVNonPara::rendering
