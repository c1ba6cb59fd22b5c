#pragma once
// Texts between the library (UTF-8, line ends CR LF) and the toolkit (UTF-16, line ends LF).

#include <string>
#include <string_view>

#include <QString>

namespace canvas::view {

inline QString shown(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// With every line end as a single LF.
inline QString shownLines(std::string_view text) {
    QString lines = shown(text);
    return lines.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(QLatin1Char('\r'), QLatin1Char('\n'));
}

inline std::string taken(const QString& text) { return text.toStdString(); }

/// A caption without its mnemonic's sign: "&Help" is "Help".
inline QString plainCaption(std::string_view caption) {
    QString plain;
    const QString whole = shown(caption);
    for (qsizetype i = 0; i < whole.size(); ++i) {
        if (whole[i] == QLatin1Char('&') && i + 1 < whole.size()) ++i;
        plain += whole[i];
    }
    return plain;
}

}  // namespace canvas::view
