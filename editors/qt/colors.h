#pragma once
// A control's colour as the toolkit's.

#include <cstdint>

#include <QColor>
#include <QPalette>

namespace canvas::view {

/// Red is the lowest byte.
inline QColor colorOf(std::int32_t color) { return QColor(color & 0xFF, color >> 8 & 0xFF, color >> 16 & 0xFF); }

/// Black or white, whichever is read better on the colour: the palette's own text may be light on a light field.
inline QColor textOn(const QColor& back) {
    return 299 * back.red() + 587 * back.green() + 114 * back.blue() > 127'500 ? Qt::black : Qt::white;
}

/// The palette of a widget whose ground has the colour; the inherited one for -1.
inline QPalette colored(std::int32_t color) {
    QPalette palette;
    if (color < 0) return palette;
    const QColor back = colorOf(color);
    for (const QPalette::ColorRole role : {QPalette::Base, QPalette::Window, QPalette::Button})
        palette.setColor(role, back);
    for (const QPalette::ColorRole role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        palette.setColor(role, textOn(back));
    return palette;
}

}  // namespace canvas::view
