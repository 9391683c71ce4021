#pragma once

#include <QtCore/QRectF>
#include <QtCore/QString>

#include <optional>
#include <vector>

class QPainter;

namespace ZYN::Page {

/// Yield of one hour or day.
struct YieldPoint {
    QString label;
    double yield = 0;     ///< 0 to 1
    double firstPass = 0; ///< 0 to 1; not a number where no first run was
    double units = 0;
};

/// Yield and first-pass yield as lines over the number of units as bars.
void DrawYieldOverTime(QPainter& painter, const QRectF& area, const std::vector<YieldPoint>& points);

/// A row of a list of bars.
struct Bar {
    QString label;
    double share = 0; ///< length, 0 to 1 of the widest
    QString text;     ///< behind the bar
    bool bad = true;
};

constexpr double barHeight = 22;

/// Bars below each other, their names at the left; a name that is too long loses its middle.
void DrawBars(QPainter& painter, const QRectF& area, const std::vector<Bar>& bars);

/// A wafer and its dies.
struct WaferDies {
    struct Die {
        int x = 0, y = 0;
        bool passed = false;
    };
    QString name;
    std::vector<Die> dies;
};

/// Dies as squares where they lie, x to the right and y down; those that did not pass stand out.
void DrawWafer(QPainter& painter, const QRectF& area, const WaferDies& wafer);

} // namespace ZYN::Page
