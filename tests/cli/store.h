#pragma once
// What the tests of `canvas store` share: a new store in a folder of its own.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/cli/program.h"
#include "tests/cli/schema.h"
#include "tests/hardware/sqlite.h"

namespace canvas::store_cli {

using schema::Json;

class Store : public ::testing::Test {
protected:
    Store() { EXPECT_EQ(said({"new"}).code, 0); }

    /// `canvas store <part...> <store> <rest...>`.
    program::Said said(std::vector<std::string> part, const std::vector<std::string>& rest = {},
                       program::Setting setting = {}) {
        part.insert(part.begin(), "store");
        part.push_back("plant.db");
        part.insert(part.end(), rest.begin(), rest.end());
        setting.folder = folder.path();
        return program::run(part, setting);
    }
    /// Its JSON, which must be as docs/store.schema.json says.
    Json json(const std::vector<std::string>& part, std::vector<std::string> rest = {}, int code = 0) {
        rest.push_back("--json");
        const auto answer = said(part, rest);
        EXPECT_EQ(answer.code, code) << answer.err;
        const Json document = Json::parse(answer.out);
        EXPECT_THAT(schema::faults(document, schema::load("store.schema.json")), ::testing::IsEmpty());
        return document;
    }
    void sql(const std::string& text) { fixture::Sqlite(path).run(text); }
    fixture::Texts rows(const std::string& text) { return fixture::Sqlite(path).rows(text); }
    std::string valueOf(int group, int number) {
        return rows("SELECT Value FROM tblSystemProperties WHERE groupID = " + std::to_string(group) +
                    " AND PropertyNumber = " + std::to_string(number))
            .at(0);
    }

    const scratch::Folder folder;
    const std::string path = folder / "plant.db";
};

}  // namespace canvas::store_cli
