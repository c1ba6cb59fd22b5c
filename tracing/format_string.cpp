#include "host/text.h"
#include "tracing/options.h"
#include "tracing/report.h"

namespace canvas::tracing {
namespace {

/// One unit more than the limit is kept. A pair of CR and LF is not left with its CR alone; a CR that is alone in the
/// text may end it.
std::string cut(std::string_view text, std::size_t limit) {
    std::string_view kept = text::left(text, limit + 1);
    if (kept.ends_with('\r') && text.substr(kept.size()).starts_with('\n')) kept.remove_suffix(1);
    return std::string(kept) + "{...}";
}

std::string withVisibleLineEnds(std::string_view text) {
    std::string visible;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text.substr(i).starts_with("\r\n")) {
            visible += "<CrLf>";
            ++i;
        } else if (text[i] == '\r') visible += "<Cr>";
        else if (text[i] == '\n') visible += "<Lf>";
        else visible += text[i];
    }
    return visible;
}

}  // namespace

std::string FormatString(std::string_view arg) {
    if (arg.ends_with('}')) return std::string(arg);  // a special value; a user's text is not told from one
    const std::int32_t limit = vbwCommon.vbwDumpStringMaxLength;
    const bool tooLong = limit > 0 && text::length(arg) > static_cast<std::size_t>(limit);
    const std::string shown = withVisibleLineEnds(tooLong ? cut(arg, static_cast<std::size_t>(limit)) : std::string(arg));
    return '"' + shown + '"';
}

}  // namespace canvas::tracing
