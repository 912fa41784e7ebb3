#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace TBVNonPara::rendering {

/// A finished drawing: what it is called, and what it shows for those who cannot see it.
struct Drawing {
    double height = 0;
    std::string name;
    std::string description;
    std::string elements;  ///< in SVG; empty where there is nothing to draw
};

/// A drawing as a figure of a page with its description below. Each of a page has an id of its own.
[[nodiscard]] std::string figureOf(const Drawing& drawing, std::string_view id = "picture");

/// A drawing as a file of its own: in the colours of a light ground, with paper behind it, in letters of a
/// font that the reader may have.
[[nodiscard]] std::string svgFile(const Drawing& drawing, std::string_view font);

/// A drawing of a fixed width. Lengths are in its own units; classes get their colours from the page.
class Svg {
 public:
    static constexpr double width = 640;

    void line(double x1, double y1, double x2, double y2, std::string_view cssClass);
    void rectangle(double x, double y, double w, double h, std::string_view cssClass);
    void circle(double x, double y, double radius, std::string_view cssClass);
    /// The anchor is start, middle or end.
    void text(double x, double y, std::string_view text, std::string_view anchor,
              std::string_view cssClass = "");

    [[nodiscard]] Drawing finish(double height, std::string_view name, std::string_view description) const;

 private:
    std::string m_Elements;
};

/// A stretch of numbers along a stretch of the drawing.
class Scale {
 public:
    Scale(double lowest, double highest, double from, double to);

    [[nodiscard]] double at(double value) const;
    /// Draws a horizontal axis with round numbers, and faint lines up from it.
    void drawAxis(Svg& svg, double top, double bottom) const;

    /// The same upwards, where `from` is the lower end.
    void drawUprightAxis(Svg& svg, double left, double right) const;

 private:
    /// Round numbers on the scale; none when its span is no number.
    [[nodiscard]] std::vector<double> ticks() const;
    /// Of how many ticks one has room for its number.
    [[nodiscard]] std::size_t ticksALabel(const std::vector<double>& values) const;

    double m_Lowest;
    double m_Highest;
    double m_From;
    double m_To;
};

/// A text in at most so many columns, of which a wide character takes two, with an ellipsis where it is cut.
[[nodiscard]] std::string shortened(std::string_view text, std::size_t columns);

}  // namespace TBVNonPara::rendering
