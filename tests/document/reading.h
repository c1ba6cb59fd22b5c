#pragma once
// Reading a program from text, for the tests of the reader.

#include "tests/document/fixture.h"

namespace canvas::fixture {

/// Lines joined as a file has them.
inline std::string lines(const Texts& all) {
    std::string text;
    for (const std::string& line : all) text += line + "\r\n";
    return text;
}

inline const std::string windowLine = "WINDOW_PARAMS_DEFINE 0 0 4000 6000 100% 0 0 0";
inline const std::string header = lines({"VERSION_NUMBER 200", "NUM_BLOCKS 1", windowLine});

/// A document that reads the text as the file "p.bpa", asked for as "p.bpg".
struct Reading : Drawing {
    const std::string failed = "critical|File Error|'p.bpg' cannot be opened";

    bool read(const std::string& bytes) const {
        disk->contents["p.bpa"] = bytes;
        return document->Readfile("p.bpg");
    }
    bool readBlocks(const Texts& blockLines) const { return read(header + lines(blockLines)); }
    /// A reading that must succeed without any box.
    void mustRead(const Texts& blockLines) const {
        EXPECT_TRUE(readBlocks(blockLines));
        EXPECT_EQ(told(), Texts{});
    }
    /// The identifiers of the blocks, in order.
    std::string ids() const {
        std::string text;
        for (std::size_t i = 0; i < document->BlockCollection->size(); ++i)
            text += (i ? " " : "") + std::to_string((*document->BlockCollection)[i].intBlockID);
        return text;
    }
    Value setting(std::int16_t id, std::string_view property) const { return at(id).BVTAttribute()->get(property); }
};

}  // namespace canvas::fixture
