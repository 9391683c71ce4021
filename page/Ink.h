#pragma once

#include <QtGui/QColor>

#include <array>

namespace ZYN::Page {

/// What a colour of a plot means. Plots are painted in these colours only; on a web page each becomes a
/// variable of the style sheet, so that light, dark and printed pages have colours of their own.
enum class Ink { Text, Faint, Grid, Good, Bad, Limit, Mean, Fit, Mark, Area };

struct InkColour {
    Ink ink;
    const char* variable; ///< name of the variable in the style sheet
    QRgb light;           ///< unlike all others: the colour tells the ink
    QRgb dark;
};

/// Told apart by the colour-blind: blue, vermilion, bluish green and purple of Okabe and Ito (2008).
inline constexpr std::array<InkColour, 10> inkColours = {{
    {Ink::Text, "--text", 0xff1b2430, 0xffe6e9ee},
    {Ink::Faint, "--faint", 0xff667080, 0xff9aa4b2},
    {Ink::Grid, "--grid", 0xffe3e7ec, 0xff2b3440},
    {Ink::Good, "--good", 0xff0072b2, 0xff5ab4e5},
    {Ink::Bad, "--bad", 0xffd55e00, 0xffff8b45},
    {Ink::Limit, "--limit", 0xffb04a00, 0xffffa266},
    {Ink::Mean, "--mean", 0xff007d5a, 0xff2fc49a},
    {Ink::Fit, "--fit", 0xff3c4654, 0xffc3cad4},
    {Ink::Mark, "--mark", 0xffa0508f, 0xffe39bd3},
    {Ink::Area, "--area", 0xffbcd9ea, 0xff1f4a66},
}};

inline QColor ColourOf(Ink ink)
{
    for (const InkColour& colour : inkColours)
        if (colour.ink == ink)
            return QColor(colour.light);
    return Qt::black;
}

} // namespace ZYN::Page
