#pragma once
// A store's file as other programs see it: opened for one statement, closed again.

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include <sqlite3.h>

namespace canvas::fixture {

using Texts = std::vector<std::string>;

/// A connection of the test's own.
class Sqlite {
public:
    explicit Sqlite(const std::string& path) {
        if (sqlite3_open(path.c_str(), &m_handle) != SQLITE_OK) throw std::runtime_error("cannot open " + path);
        sqlite3_busy_timeout(m_handle, 10'000);
    }
    ~Sqlite() { sqlite3_close(m_handle); }
    Sqlite(const Sqlite&) = delete;
    Sqlite& operator=(const Sqlite&) = delete;

    void run(const std::string& sql) {
        char* complaint = nullptr;
        if (sqlite3_exec(m_handle, sql.c_str(), nullptr, nullptr, &complaint) == SQLITE_OK) return;
        const std::string text = complaint ? complaint : "failed";
        sqlite3_free(complaint);
        throw std::runtime_error(text + ": " + sql);
    }

    /// A text a row: its columns with commas between them, "null" for a null.
    Texts rows(const std::string& sql) {
        Texts found;
        sqlite3_exec(
            m_handle, sql.c_str(),
            [](void* into, int count, char** columns, char**) {
                std::string& row = static_cast<Texts*>(into)->emplace_back();
                for (int i = 0; i < count; ++i) row.append(i ? "," : "").append(columns[i] ? columns[i] : "null");
                return 0;
            },
            &found, nullptr);
        return found;
    }

private:
    sqlite3* m_handle = nullptr;
};

/// A value as an SQL literal.
inline std::string literal(const std::optional<std::string>& text) {
    if (!text) return "NULL";
    std::string quoted = "'";
    for (const char c : *text) quoted.append(c == '\'' ? 2 : 1, c);
    return quoted + "'";
}

}  // namespace canvas::fixture
