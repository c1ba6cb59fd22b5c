// The module classes beside the same statements by hand, and the list of nodes as it grows.

#include <fmt/format.h>
#include <sqlite3.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>
#include <stdexcept>
#include <vector>

#include "benchmarks/cases.h"
#include "hardware/modules.h"
#include "hardware/schema.h"
#include "host/collection.h"
#include "host/numbers.h"

namespace canvas::bench {
namespace {

using Clock = std::chrono::steady_clock;

/// A new store in a folder of its own, gone at the end.
class Scratch {
public:
    explicit Scratch(const std::filesystem::path& parent)
        : m_folder(parent / ("canvas_bench." + std::to_string(::getpid()))) {
        std::filesystem::create_directories(m_folder);
        createStore(file("store.db"));
    }
    ~Scratch() {
        std::error_code ignored;
        std::filesystem::remove_all(m_folder, ignored);
    }
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;
    std::string file(const char* name) const { return (m_folder / name).string(); }

private:
    std::filesystem::path m_folder;
};

/// What someone writes who wants this and nothing else: the statements prepared once, errors end the program.
class ByHand {
public:
    explicit ByHand(const std::string& path) {
        require(sqlite3_open_v2(path.c_str(), &m_database, SQLITE_OPEN_READWRITE, nullptr));
        execute("PRAGMA synchronous=EXTRA; PRAGMA journal_mode=DELETE");
        m_load = prepared("SELECT * FROM qryRVQD");
        m_rows = prepared("SELECT _rowid_, PropertyNumber, DisplayFormat FROM tblSystemProperties WHERE groupID=1");
        m_save = prepared("UPDATE tblSystemProperties SET Value=?1, Dirty=1 WHERE _rowid_=?2");
        m_import = prepared("UPDATE tblSystemProperties SET Value=?3, Dirty=?4 WHERE groupID=?1 AND PropertyNumber=?2");
    }
    ~ByHand() {
        for (sqlite3_stmt* statement : {m_load, m_rows, m_save, m_import}) sqlite3_finalize(statement);
        sqlite3_close(m_database);
    }
    ByHand(const ByHand&) = delete;
    ByHand& operator=(const ByHand&) = delete;

    void load() {
        execute("BEGIN");
        std::size_t row = 0;
        for (; sqlite3_step(m_load) == SQLITE_ROW; ++row)
            for (int column = 0; column < 15; ++column)
                m_matrix.at(row)[static_cast<std::size_t>(column)] = textOf(m_load, column);
        sqlite3_reset(m_load);
        execute("COMMIT");
    }

    void save() {
        execute("BEGIN IMMEDIATE");
        while (sqlite3_step(m_rows) == SQLITE_ROW) {
            const auto number = static_cast<std::size_t>(sqlite3_column_int(m_rows, 1));
            if (number < 2) continue;
            std::string value = m_matrix.at(number - 1)[1];
            if (textOf(m_rows, 2) == "2") value = std::to_string(std::stoi(value));
            bind(m_save, 1, value);
            sqlite3_bind_int64(m_save, 2, sqlite3_column_int64(m_rows, 0));
            run(m_save);
        }
        sqlite3_reset(m_rows);
        execute("COMMIT");
    }

    void importFile(const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        const std::string text(std::istreambuf_iterator<char>(file), {});
        execute("BEGIN IMMEDIATE");
        std::size_t at = text.find('\n', text.find('\n') + 1) + 1;
        while (at < text.size()) {
            std::array<std::string_view, 4> fields;
            for (std::string_view& field : fields) {
                const std::size_t end = text.find_first_of(",\r", at);
                field = std::string_view(text).substr(at, end - at);
                at = end + (text[end] == '\r' ? 2 : 1);
            }
            fields[2] = fields[2].substr(1, fields[2].size() - 2);
            for (int place = 0; place < 4; ++place) bind(m_import, place + 1, fields[static_cast<std::size_t>(place)]);
            run(m_import);
        }
        execute("COMMIT");
    }

private:
    static void require(int code) {
        if (code != SQLITE_OK) throw std::runtime_error("a statement by hand failed");
    }
    void execute(const char* sql) { require(sqlite3_exec(m_database, sql, nullptr, nullptr, nullptr)); }
    sqlite3_stmt* prepared(const char* sql) {
        sqlite3_stmt* statement = nullptr;
        require(sqlite3_prepare_v2(m_database, sql, -1, &statement, nullptr));
        return statement;
    }
    static void bind(sqlite3_stmt* statement, int place, std::string_view text) {
        sqlite3_bind_text(statement, place, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
    }
    static void run(sqlite3_stmt* statement) {
        sqlite3_step(statement);
        require(sqlite3_reset(statement));
    }
    static std::string textOf(sqlite3_stmt* statement, int column) {
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
        return text ? std::string(text, static_cast<std::size_t>(sqlite3_column_bytes(statement, column))) : std::string();
    }

    sqlite3* m_database = nullptr;
    sqlite3_stmt *m_load = nullptr, *m_rows = nullptr, *m_save = nullptr, *m_import = nullptr;
    std::vector<std::array<std::string, 15>> m_matrix = std::vector<std::array<std::string, 15>>(71);
};

template <class Work>
double microseconds(Work&& work) {
    const auto start = Clock::now();
    work();
    return std::chrono::duration<double, std::micro>(Clock::now() - start).count();
}

/// Runs both in turn, so that a slow moment of the machine falls on both, and compares their fastest runs.
template <class Ours, class Theirs>
void compare(const char* what, int rounds, Ours&& ours, Theirs&& theirs) {
    constexpr double aim = 1.15;
    double least = std::numeric_limits<double>::max(), leastByHand = least;
    for (int round = 0; round < rounds; ++round) {
        least = std::min(least, microseconds(ours));
        leastByHand = std::min(leastByHand, microseconds(theirs));
    }
    fmt::print("  {:<42} {:>8.0f} us, by hand {:>8.0f} us, ratio {:.2f} (aim {:.2f})\n", what, least, leastByHand,
               least / leastByHand, aim);
}

void printModules(const std::filesystem::path& parent, int rounds) {
    const Scratch scratch(parent);
    const std::string path = scratch.file("store.db");
    std::string csv = scratch.file("servo.csv");
    const auto module = make<clsBVTRVQD>();
    module->SetDBPath(path);
    module->ExportToCSV(csv);
    ByHand byHand(path);
    byHand.load();
    compare("load 71 rows", rounds, [&] { module->ReadFromDB(); }, [&] { byHand.load(); });
    compare("save 71 rows", rounds, [&] { module->SaveToDB(); }, [&] { byHand.save(); });
    compare("load and save 71 rows", rounds,
            [&] {
                module->ReadFromDB();
                module->SaveToDB();
            },
            [&] {
                byHand.load();
                byHand.save();
            });
    compare("import 71 rows", rounds, [&] { module->ImportFromCSV(csv); }, [&] { byHand.importFile(csv); });
}

void printNodes(const std::filesystem::path& parent, int nodes) {
    const Scratch scratch(parent);
    std::string csv = scratch.file("nodes.csv");
    {
        std::ofstream file(csv, std::ios::binary);
        file << "\"Network\"\r\n\"GroupID\",\"PropertyNumber\",\"Value\",\"Dirty\"\r\n";
        for (int line = 1; line <= 11; ++line) file << "5," << line << ",\"\",0\r\n";
        file << "\"RemoteIO\"\r\n\"Node\",\"Name\",\"NodeType\",\"InputWords\",\"OutputWords\",\"TypeCode\",\"Dirty\"\r\n";
        for (int node = 1; node <= nodes; ++node) file << '"' << node << "\",\"Node " << node << "\",\"\",\"0\",\"0\",\"\",1\r\n";
    }
    const auto module = make<clsBVTRemoteIO>();
    module->SetDBPath(scratch.file("store.db"));
    const double import = microseconds([&] { module->ImportFromCSV(csv, axiolane); });
    const double list = microseconds([&] {
        Ref<Object> numbers = make<Collection>(), names = make<Collection>();
        module->GetRemoteIOList(1, numbers, names);
    });
    const double find = microseconds([&] {
        for (int node = 1; node <= nodes; ++node) module->IsInList(numbers::textOf(node));
    });
    // one transaction around all: what each costs, without the disk's share
    const auto transaction = module->dbRemoteIO->begin(store::Access::write);
    const double remove = microseconds([&] {
        for (int node = nodes; node >= 1; --node) module->RemoveFromList(node, axiolane);
    });
    transaction->commit();
    fmt::print("  {:>6} nodes, us a node: import {:.2f}, list {:.2f}, find {:.2f}, remove {:.2f}\n", nodes, import / nodes,
               list / nodes, find / nodes, remove / nodes);
}

}  // namespace

void printHardware() {
    const std::filesystem::path memory = "/dev/shm", disk = std::filesystem::temp_directory_path();
    if (std::filesystem::is_directory(memory)) {
        fmt::print("record store in memory ({})\n", memory.string());
        printModules(memory, 400);
        for (const int nodes : {100, 1000, 10'000}) printNodes(memory, nodes);
    }
    fmt::print("record store on disk ({})\n", disk.string());
    printModules(disk, 40);
}

}  // namespace canvas::bench
