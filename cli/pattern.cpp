#include "cli/pattern.h"

#include <algorithm>
#include <filesystem>
#include <optional>

#include "host/text.h"
#include "host/utf8.h"

namespace canvas::cli {
namespace {

namespace fs = std::filesystem;

std::size_t characterSize(std::string_view text) { return std::max<std::size_t>(utf8::first(text).size, 1); }

/// Takes the class at the pattern's start off it; nothing, and the pattern as it was, when it has no end.
std::optional<bool> takeClass(char c, std::string_view& pattern) {
    std::size_t i = 1;
    const bool negated = i < pattern.size() && pattern[i] == '!';
    if (negated) ++i;
    bool met = false;
    for (const std::size_t first = i; i < pattern.size() && (pattern[i] != ']' || i == first); ++i) {
        char last = pattern[i];
        if (i + 2 < pattern.size() && pattern[i + 1] == '-' && pattern[i + 2] != ']') last = pattern[i + 2];
        met = met || (pattern[i] <= c && c <= last);
        if (last != pattern[i]) i += 2;
    }
    if (i >= pattern.size()) return {};
    pattern.remove_prefix(i + 1);
    return met != negated;
}

/// Takes one character off both; false when they differ.
bool takeOne(std::string_view& name, std::string_view& pattern) {
    if (name.empty() || pattern.empty()) return false;
    const char c = name[0];
    if (pattern[0] == '[')
        if (const auto met = takeClass(c, pattern)) {
            name.remove_prefix(characterSize(name));
            return *met;
        }
    if (pattern[0] != '?' && pattern[0] != c) return false;
    name.remove_prefix(pattern[0] == '?' ? characterSize(name) : 1);
    pattern.remove_prefix(1);
    return true;
}

bool fitsFrom(std::string_view name, std::string_view pattern) {
    std::string_view behindStar, retry;
    bool star = false;
    while (!name.empty() || !pattern.empty()) {
        if (pattern.starts_with('*')) {
            star = true;
            pattern.remove_prefix(1);
            behindStar = pattern;
            retry = name;
        } else if (!takeOne(name, pattern)) {
            if (!star || retry.empty()) return false;
            retry.remove_prefix(1);
            name = retry;
            pattern = behindStar;
        }
    }
    return true;
}

class Expansion {
public:
    explicit Expansion(const std::string& pattern) : m_parts(text::split(pattern, "/")) {}

    std::vector<std::string> run() {
        const bool fromRoot = !m_parts.empty() && m_parts[0].empty();
        walk(fromRoot ? "/" : "", fromRoot ? 1 : 0);
        return std::move(m_found);
    }

private:
    void walk(const fs::path& folder, std::size_t part) {
        while (part < m_parts.size() && m_parts[part].empty()) ++part;  // "a//b", and a slash at the end
        if (part == m_parts.size()) {
            if (!folder.empty()) m_found.push_back(folder.string());
        } else if (m_parts[part] == "**") {
            walk(folder, part + 1);
            eachEntry(folder, "*", [&](const fs::directory_entry& entry) {
                std::error_code unknown;
                if (entry.is_directory(unknown) && !entry.is_symlink(unknown))
                    walk(folder / entry.path().filename(), part);
            });
        } else if (isPattern(m_parts[part])) {
            eachEntry(folder, m_parts[part], [&](const fs::directory_entry& entry) {
                std::error_code unknown;
                if (isLast(part) || entry.is_directory(unknown)) walk(folder / entry.path().filename(), part + 1);
            });
        } else {
            std::error_code unknown;
            const fs::path next = folder / m_parts[part];
            if (fs::exists(fs::symlink_status(next, unknown))) walk(next, part + 1);
        }
    }

    bool isLast(std::size_t part) const { return part + 1 == m_parts.size(); }

    template <class Visit>
    static void eachEntry(const fs::path& folder, std::string_view pattern, Visit visit) {
        std::error_code ended;  // what cannot be listed holds nothing
        fs::directory_iterator entries(folder.empty() ? fs::path(".") : folder, ended);
        for (; !ended && entries != fs::directory_iterator(); entries.increment(ended))
            if (fits(entries->path().filename().string(), pattern)) visit(*entries);
    }

    std::vector<std::string_view> m_parts;
    std::vector<std::string> m_found;
};

}  // namespace

bool isPattern(std::string_view text) noexcept { return text.find_first_of("*?[") != std::string_view::npos; }

bool fits(std::string_view name, std::string_view pattern) {
    if (name.starts_with('.') && !pattern.starts_with('.')) return false;
    return fitsFrom(name, pattern);
}

std::vector<std::string> expand(const std::string& pattern) { return Expansion(pattern).run(); }

}  // namespace canvas::cli
