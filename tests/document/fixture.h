#pragma once
// What the tests of the document share: a user who reads message boxes, a disk that fails to order, and short ways to
// draw a program and to look at its wiring.

#include <initializer_list>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "document/canvas.h"
#include "document/catalogue.h"
#include "host/composed.h"
#include "host/ports.h"
#include "tests/attributes/print.h"

namespace canvas::fixture {

using Texts = std::vector<std::string>;
using Ids = std::initializer_list<std::int16_t>;

/// Keeps the message boxes and answers OK.
class Reader final : public Interaction {
public:
    std::vector<MessageBox> boxes;

    Reply messageBox(const MessageBox& box) override {
        boxes.push_back(box);
        return Reply::ok;
    }
    std::string inputBox(std::string_view, std::string_view, std::string_view) override { return {}; }
    void beep() override {}
    std::int32_t openAddress(std::string_view) override { return 0; }
    void setClipboard(std::string_view) override {}
    bool showForm(Object&) override { return false; }
};

/// Whole files in memory. A save fails where a test wants it to: with `replaceError` when it begins, with
/// `commitError` at its end.
class MemoryDisk final : public Files {
public:
    std::map<std::string, std::string> contents;
    Texts calls;  ///< "read a.bpa", "replace a.bpa", "commit a.bpa"
    Error replaceError{}, commitError{};

    std::string read(const std::string& path, std::uint64_t limit) override {
        calls.push_back("read " + path);
        const auto file = contents.find(path);
        if (file == contents.end()) raise(Error::fileNotFound);
        if (file->second.size() > limit) raise(Error::outOfMemory);
        return file->second;
    }
    std::unique_ptr<Replacement> replace(const std::string& path) override {
        calls.push_back("replace " + path);
        if (replaceError != Error{}) raise(replaceError);
        return std::make_unique<Save>(*this, path);
    }
    bool exists(const std::string& path) override { return contents.contains(path); }
    bool isFolder(const std::string&) override { return false; }
    std::string currentFolder() override { return "/"; }
    int open(const std::string&, OpenMode) override { raise(Error::deviceIO); }
    void close(int) override { raise(Error::badFileNumber); }
    std::string readLine(int) override { raise(Error::badFileNumber); }
    bool atEnd(int) override { raise(Error::badFileNumber); }
    void writeLine(int, std::string_view) override { raise(Error::badFileNumber); }
    void remove(const std::string&) override { raise(Error::deviceIO); }
    void rename(const std::string&, const std::string&) override { raise(Error::deviceIO); }
    void makeFolder(const std::string&) override { raise(Error::deviceIO); }

private:
    class Save final : public Replacement {
    public:
        Save(MemoryDisk& disk, std::string path) : m_disk(disk), m_path(std::move(path)) {}
        void commit(std::string_view bytes) override {
            m_disk.calls.push_back("commit " + m_path);
            if (m_disk.commitError != Error{}) raise(m_disk.commitError);
            m_disk.contents[m_path] = bytes;
        }

    private:
        MemoryDisk& m_disk;
        std::string m_path;
    };
};

inline Environment environmentWith(std::shared_ptr<Interaction> interaction, std::shared_ptr<Files> files) {
    Environment surroundings;
    surroundings.interaction = std::move(interaction);
    surroundings.files = std::move(files);
    return surroundings;
}

inline std::string_view iconName(Icon icon) {
    constexpr std::string_view names[]{"none", "critical", "question", "exclamation", "information"};
    return names[static_cast<std::size_t>(icon)];
}

inline Ref<clsBVTBlock> newBlock(std::int16_t id, std::int16_t type, std::string_view label = {}) {
    auto block = make<clsBVTBlock>();
    block->intBlockID = id;
    block->setBlockType(type);
    block->strBlockLabel = label;
    return block;
}

inline Ref<clsBVTEdge> newEdge(std::int16_t from, std::int16_t to, bool top = true) {
    auto edge = make<clsBVTEdge>();
    edge->intFromBlockID = from;
    edge->intToBlockID = to;
    edge->blnTopEdge = top;
    return edge;
}

/// "to 4,-1 used 1,0 from 3t 7b": both outputs, their flags, and the sources with the port they leave.
inline std::string wiring(const clsBVTBlock& block) {
    std::string text = "to " + std::to_string(block.intToFirstBlockID) + ',' +
                       std::to_string(block.intToSecondBlockID) + " used " + (block.blnTopPortUsed ? "1," : "0,") +
                       (block.blnBottomPortUsed ? '1' : '0') + " from";
    for (std::size_t i = 0; i < block.inPortCount(); ++i)
        text += ' ' + Value(block.inPort(i).sngBlockID).toText() + (block.inPort(i).blnFromTopPort ? 't' : 'b');
    return text;
}

/// An attribute of another library: copies are itself, its file line ends in "0 ", and it offers what a test adds.
inline Ref<Composed> foreignAttribute() {
    auto attribute = make<Composed>("Foreign");
    attribute->method("IsTheSame", [self = attribute.get()](Args) { return Value(Ref<Object>(self)); });
    attribute->method("OutputToFile", [](Args args) { return Value(args[0].toText() + "0 "); });
    attribute->method("AssignFromFile", [](Args) { return Value(); });
    return attribute;
}

/// A document, its user, and a disk in memory.
struct Drawing : ::testing::Test {
    std::shared_ptr<Reader> user = std::make_shared<Reader>();
    std::shared_ptr<MemoryDisk> disk = std::make_shared<MemoryDisk>();
    WithEnvironment inForce{environmentWith(user, disk)};
    Ref<clsBVTCanvas> document = make<clsBVTCanvas>();

    /// The texts of the boxes since the last look.
    Texts told() const {
        Texts texts;
        for (const MessageBox& box : std::exchange(user->boxes, {})) texts.push_back(box.text);
        return texts;
    }
    /// The same as "icon|title|text".
    Texts boxes() const {
        Texts boxes;
        for (const MessageBox& box : std::exchange(user->boxes, {}))
            boxes.push_back(std::string(iconName(box.icon)) + '|' + box.title + '|' + box.text);
        return boxes;
    }

    clsBVTBlock& add(std::int16_t id, std::int16_t type, std::string_view label = {}) const {
        EXPECT_TRUE(document->AddBlock(*newBlock(id, type, label)));
        return at(id);
    }
    clsBVTBlock& at(std::int16_t id) const { return document->BlockCollection->byKey(id); }
    /// A block with a foreign attribute, for types whose own class says too much or is not there yet.
    clsBVTBlock& addForeign(std::int16_t id, std::int16_t type, Ref<Composed> attribute = foreignAttribute()) const {
        clsBVTBlock& block = add(id, MOVEAXIS);
        block.intBlockType = type;
        block.setBVTAttribute(attribute);
        return block;
    }
    bool join(std::int16_t from, std::int16_t to, bool top = true) const {
        return document->AddEdge(*newEdge(from, to, top));
    }
    std::string wiring(std::int16_t id) const { return wiring(at(id)); }
    static std::string wiring(const clsBVTBlock& block) { return fixture::wiring(block); }
};

}  // namespace canvas::fixture
