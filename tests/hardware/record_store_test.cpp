// The record store itself: moving, finding, changing and sorting records, queries, transactions, shared connections.

#include "fixture.h"
#include "hardware/sqlite_store.h"

namespace canvas {
namespace {

using namespace fixture;
using namespace std::string_view_literals;
using store::Access;

struct RecordStore : ::testing::Test {
    Store file;
    std::shared_ptr<store::Database> database = store::engine().open(file.path);

    void SetUp() override {
        for (const std::string node : {"2", "1", "3"}) add(node, "name " + node);
    }
    void add(const std::string& node, const std::string& name) const {
        file.addNode({node, name, "t", "0", "0", "null", "null", "1", "N/A", "0"});
    }
    std::unique_ptr<store::Recordset> nodes() const { return database->openDynaset("tblRemoteIO"); }
    static std::string node(store::Recordset& rows) { return shown(rows.field("Node")); }
    Texts stored() const { return file.rows("SELECT Node, Name FROM tblRemoteIO ORDER BY rowid"); }
};

TEST_F(RecordStore, StandsOnTheFirstRecordAfterOpening) {
    const auto rows = nodes();
    EXPECT_FALSE(rows->eof());
    EXPECT_FALSE(rows->bof());
    EXPECT_EQ(node(*rows), "2");
}

TEST_F(RecordStore, WalksForwardAndBack) {
    const auto rows = nodes();
    Texts seen;
    for (; !rows->eof(); rows->moveNext()) seen.push_back(node(*rows));
    EXPECT_EQ(seen, (Texts{"2", "1", "3"}));
    EXPECT_EQ(raisedBy([&] { rows->moveNext(); }), 3021);
    seen.clear();
    rows->movePrevious();
    for (; !rows->bof(); rows->movePrevious()) seen.push_back(node(*rows));
    EXPECT_EQ(seen, (Texts{"3", "1", "2"}));
    EXPECT_EQ(raisedBy([&] { rows->movePrevious(); }), 3021);
    rows->moveLast();
    EXPECT_EQ(node(*rows), "3");
    rows->moveFirst();
    EXPECT_EQ(node(*rows), "2");
}

TEST_F(RecordStore, AnEmptyTableIsAtItsEnd) {
    file.run("DELETE FROM tblRemoteIO");
    const auto rows = nodes();
    EXPECT_TRUE(rows->eof());
    EXPECT_EQ(rows->recordCount(), 0);
    EXPECT_EQ(raisedBy([&] { rows->field("Node"); }), 3021);
    EXPECT_EQ(raisedBy([&] { rows->edit(); }), 3021);
    EXPECT_EQ(raisedBy([&] { rows->remove(); }), 3021);
    EXPECT_EQ(raisedBy([&] { rows->moveNext(); }), 3021);
}

TEST_F(RecordStore, FindsTheFirstRecordThatMeetsAllConditions) {
    add("1", "another");
    const auto rows = nodes();
    rows->findFirst("Node", "1");
    EXPECT_FALSE(rows->noMatch());
    EXPECT_EQ(rows->field("Name"), Value("name 1"));
    rows->findFirst({{"Node"sv, "1"}, {"Name"sv, "another"}});
    EXPECT_FALSE(rows->noMatch());
    EXPECT_EQ(rows->field("Name"), Value("another"));
    rows->moveNext();
    EXPECT_TRUE(rows->eof());
}

TEST_F(RecordStore, AFailedSearchStaysWhereItWas) {
    const auto rows = nodes();
    rows->findFirst("Node", "1");
    rows->findFirst("Node", "99");
    EXPECT_TRUE(rows->noMatch());
    EXPECT_EQ(node(*rows), "1");
    rows->moveNext();
    EXPECT_EQ(node(*rows), "3");
}

TEST_F(RecordStore, ANullIsEqualToNothing) {
    const auto rows = nodes();
    rows->findFirst("InputBaseAddress", Null{});
    EXPECT_TRUE(rows->noMatch());
}

TEST_F(RecordStore, NumbersAndTextsAreFoundAsTheirColumnHoldsThem) {
    const auto rows = nodes();
    rows->findFirst("Node", 3);
    EXPECT_FALSE(rows->noMatch());
    const auto properties = database->openDynaset("tblSystemProperties");
    properties->findFirst({{"groupID"sv, "2"}, {"PropertyNumber"sv, std::int16_t{3}}});
    EXPECT_FALSE(properties->noMatch());
    EXPECT_EQ(properties->field("Value"), Value("2003"));
}

TEST_F(RecordStore, FieldsHaveTheirStoredKinds) {
    file.run("CREATE TABLE kinds (a, b, c, d, e, f); INSERT INTO kinds VALUES (1, 2.5, 'text', NULL, 5000000000, '')");
    const auto rows = database->openDynaset("kinds");
    ASSERT_EQ(rows->fieldCount(), 6U);
    EXPECT_EQ(rows->field("a"), Value(std::int32_t{1}));
    EXPECT_EQ(rows->field("b"), Value(2.5));
    EXPECT_EQ(rows->field("c"), Value("text"));
    EXPECT_EQ(rows->field("d"), Value(Null{}));
    EXPECT_EQ(rows->field("e"), Value(5e9));
    EXPECT_EQ(rows->field("f"), Value(""));
}

TEST_F(RecordStore, FieldNamesIgnoreCaseAndUnknownOnesAreErrors) {
    const auto rows = nodes();
    EXPECT_EQ(rows->field("NODE"), Value("2"));
    EXPECT_EQ(rows->ordinal("inputwords"), 3U);
    EXPECT_EQ(raisedBy([&] { rows->field("Weight"); }), 3265);
    EXPECT_EQ(raisedBy([&] { rows->findFirst("Weight", 1); }), 3265);
    EXPECT_EQ(raisedBy([&] { rows->findFirst("Node = Node OR Node", "x"); }), 3265);
}

TEST_F(RecordStore, AnEditIsWrittenByUpdateAndNotBefore) {
    const auto rows = nodes();
    rows->edit();
    rows->put("Name", "edited");
    EXPECT_EQ(rows->field("Name"), Value("edited"));
    EXPECT_EQ(stored()[0], "2,name 2");
    rows->update();
    EXPECT_EQ(stored()[0], "2,edited");
    EXPECT_EQ(rows->field("Name"), Value("edited"));
    rows->moveNext();
    EXPECT_EQ(node(*rows), "1");
}

TEST_F(RecordStore, AMoveDropsAnEdit) {
    const auto rows = nodes();
    rows->edit();
    rows->put("Name", "dropped");
    rows->moveNext();
    rows->movePrevious();
    EXPECT_EQ(rows->field("Name"), Value("name 2"));
    rows->addNew();
    rows->put("Node", "9");
    rows->moveFirst();
    EXPECT_EQ(stored().size(), 3U);
}

TEST_F(RecordStore, AnAdditionGoesToTheEndAndLeavesTheCurrentRecord) {
    const auto rows = nodes();
    rows->addNew();
    EXPECT_EQ(rows->field("Node"), Value(Null{}));
    rows->put("Node", "4");
    rows->put("Name", Null{});
    rows->update();
    EXPECT_EQ(stored(), (Texts{"2,name 2", "1,name 1", "3,name 3", "4,null"}));
    EXPECT_EQ(node(*rows), "2");
    rows->moveLast();
    EXPECT_EQ(node(*rows), "4");
    EXPECT_EQ(rows->recordCount(), 4);
}

TEST_F(RecordStore, AWalkMeetsWhatIsAddedAndPassesOverWhatIsRemoved) {
    const auto rows = nodes(), others = nodes();
    others->findFirst("Node", "1");
    others->remove();
    others->addNew();
    others->put("Node", "5");
    others->update();
    Texts seen;
    for (; !rows->eof(); rows->moveNext()) seen.push_back(node(*rows));
    EXPECT_EQ(seen, (Texts{"2", "3", "5"}));
}

TEST_F(RecordStore, RemovingLeavesNoCurrentRecordUntilTheNextMove) {
    const auto rows = nodes();
    rows->moveNext();
    rows->remove();
    EXPECT_EQ(stored(), (Texts{"2,name 2", "3,name 3"}));
    EXPECT_FALSE(rows->eof());
    EXPECT_EQ(raisedBy([&] { rows->field("Node"); }), 3021);
    EXPECT_EQ(raisedBy([&] { rows->remove(); }), 3021);
    rows->moveNext();
    EXPECT_EQ(node(*rows), "3");
    rows->remove();
    rows->moveNext();
    EXPECT_TRUE(rows->eof());
}

TEST_F(RecordStore, EveryRecordCanBeRemovedByMovingNextAfterEach) {
    for (int i = 10; i < 500; ++i) add(std::to_string(i), "n");
    const auto rows = nodes();
    for (; !rows->eof(); rows->moveNext()) rows->remove();
    EXPECT_EQ(stored(), Texts{});
}

TEST_F(RecordStore, ASortedCopyHasItsOwnOrder) {
    const auto rows = nodes();
    rows->setSort("Node");
    const auto sorted = rows->openSorted();
    Texts seen;
    for (; !sorted->eof(); sorted->moveNext()) seen.push_back(node(*sorted));
    EXPECT_EQ(seen, (Texts{"1", "2", "3"}));
    EXPECT_EQ(node(*rows), "2");
    EXPECT_THROW(sorted->edit(), ContractViolation);
}

TEST_F(RecordStore, SortingByAnUnknownFieldIsAnError) {
    const auto rows = nodes();
    EXPECT_EQ(raisedBy([&] {
                  rows->setSort("Weight");
                  rows->openSorted();
              }),
              3265);
}

TEST_F(RecordStore, AQueryIsReadOnlyAndWalksToo) {
    const auto rows = database->queryDef("qryKX410")->open();
    EXPECT_EQ(rows->fieldCount(), 15U);
    EXPECT_GT(rows->recordCount(), 0);
    int count = 0;
    for (; !rows->eof(); rows->moveNext()) ++count;
    EXPECT_EQ(count, 15);
    rows->moveFirst();
    EXPECT_EQ(rows->field("PropertyName"), Value("Name 2.1"));
    rows->findFirst("PropertyName", "Name 2.7");
    EXPECT_FALSE(rows->noMatch());
    EXPECT_EQ(rows->field("Value"), Value("2007"));
    EXPECT_THROW(rows->edit(), ContractViolation);
    EXPECT_THROW(rows->addNew(), ContractViolation);
}

TEST_F(RecordStore, WhatIsNotThereHasItsNumber) {
    EXPECT_EQ(raisedBy([&] { database->queryDef("qryNone"); }), 3265);
    EXPECT_EQ(raisedBy([&] { database->openDynaset("tblNone"); }), 3078);
    EXPECT_EQ(raisedBy([&] { database->openDynaset("tblRemoteIO; DROP TABLE tblRemoteIO"); }), 3078);
    EXPECT_EQ(raisedBy([&] { store::engine().open(file.folder / "none.db"); }), 3024);
    EXPECT_EQ(stored().size(), 3U);
}

TEST_F(RecordStore, PuttingWithoutAnEditIsAMistakeOfTheCaller) {
    const auto rows = nodes();
    EXPECT_THROW(rows->put("Name", "x"), ContractViolation);
    EXPECT_THROW(rows->update(), ContractViolation);
}

TEST_F(RecordStore, AClosedHandleIsAnError) {
    const auto rows = nodes();
    rows->close();
    EXPECT_EQ(raisedBy([&] { rows->moveFirst(); }), 91);
    database->close();
    EXPECT_EQ(raisedBy([&] { nodes(); }), 91);
    EXPECT_EQ(openHandles(file.path), 0);
}

TEST_F(RecordStore, ATransactionIsStoredAsAWhole) {
    {
        const auto transaction = database->begin(Access::write);
        const auto rows = nodes();
        rows->edit();
        rows->put("Name", "edited");
        rows->update();
        EXPECT_EQ(stored()[0], "2,name 2") << "nobody else sees it yet";
        transaction->commit();
    }
    EXPECT_EQ(stored()[0], "2,edited");
}

TEST_F(RecordStore, ATransactionWithoutACommitKeepsWhatWasWritten) {
    try {
        const auto transaction = database->begin(Access::write);
        const auto rows = nodes();
        rows->edit();
        rows->put("Name", "kept");
        rows->update();
        rows->moveNext();
        rows->edit();
        rows->put("Name", "never updated");
        raise(Error::subscript);
    } catch (const RuntimeError&) {
    }
    EXPECT_EQ(stored(), (Texts{"2,kept", "1,name 1", "3,name 3"}));
}

TEST_F(RecordStore, ATransactionInsideAnotherIsAPartOfIt) {
    const auto outer = database->begin(Access::write);
    {
        const auto inner = database->begin(Access::write);
        const auto rows = nodes();
        rows->remove();
        inner->commit();
    }
    EXPECT_EQ(stored().size(), 3U);
    outer->commit();
    EXPECT_EQ(stored().size(), 2U);
}

TEST_F(RecordStore, HandlesOnOneFileShareAConnectionWhateverItsName) {
    const auto second = store::engine().open(file.path);
    std::filesystem::create_symlink(file.path, file.folder / "link.db");
    const auto third = store::engine().open(file.folder / "link.db");
    EXPECT_EQ(openHandles(file.path), 1);
    const auto rows = third->openDynaset("tblRemoteIO");
    rows->edit();
    rows->put("Name", "edited");
    rows->update();
    EXPECT_EQ(node(*second->openDynaset("tblRemoteIO")), "2");
    EXPECT_EQ(stored()[0], "2,edited");
}

TEST_F(RecordStore, DamageIsNothingForASoundStore) { EXPECT_EQ(database->damage(), Texts{}); }

TEST_F(RecordStore, AUniqueColumnTellsADuplicate) {
    file.run("CREATE UNIQUE INDEX once ON tblRemoteIO (Node)");
    const auto rows = nodes();
    rows->addNew();
    rows->put("Node", "1");
    EXPECT_EQ(raisedBy([&] { rows->update(); }), 3022);
    EXPECT_EQ(stored().size(), 3U);
}

TEST(StoreEngine, IsReplacedForTheTimeOfAScope) {
    store::Engine* const usual = &store::engine();
    {
        const auto own = store::makeSqliteEngine();
        const store::WithEngine inForce(*own);
        EXPECT_EQ(&store::engine(), own.get());
    }
    EXPECT_EQ(&store::engine(), usual);
}

TEST(StoreEngine, AnyStoreStandsBehindTheClasses) {
    struct NoStore final : store::Engine {
        std::shared_ptr<store::Database> open(const std::string& path) override {
            asked.push_back(path);
            throw RuntimeError(1234, "Out for lunch", "Store");
        }
        Texts asked;
    } none;
    const store::WithEngine inForce(none);
    const auto module = make<clsBVTKX410>();
    const RuntimeError error = errorOf([&] { invoke(*module, "SetDBPath", "anywhere"); });
    EXPECT_EQ(error.number, 1234);
    EXPECT_EQ(error.description, "Out for lunch");
    EXPECT_EQ(error.source, "KX410::ReadFromDB");
    EXPECT_EQ(none.asked, Texts{"anywhere"});
}

}  // namespace
}  // namespace canvas
