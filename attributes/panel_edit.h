#pragma once
// What a panel hands in when it commits text, and what comes back to it.

#include <string>
#include <string_view>

#include "host/checker.h"
#include "host/members.h"
#include "tracing/branch.h"

namespace canvas {

/// Arguments that both ways of editing share: the host's checker and what it says of a text.
struct TextCheck {
    std::string& strError;
    Ref<Object>& SyntaxValidation;
    std::int32_t& selStart;
    std::int32_t& selLength;
    std::int32_t& dataType;
    bool& isLValue;
    Value& Value_;
    std::string& FormattedText;

    /// Marks all of a bad text; places count from 1 here.
    void mark(std::string_view bad) const;
    /// Whether the checker takes the text as an expression. The panel's checks pass the constants 1 and 1.
    bool isExpression(std::string_view text) const;
    void takeResult() const;
    void takeComplaint() const;
    void report(tracing::Locals& l) const;
};

/// One cell's commit.
struct CellEdit : TextCheck {
    bool bGeneralTab;
    std::int16_t iCurrentIndex;
    std::string_view strNewData;

    void report(tracing::Locals& l) const;
};

/// The whole panel's commit. Element `row + 2` of a tab's collection is the text of a row.
struct PanelEdit : TextCheck {
    bool bGeneralTab;
    std::int16_t iCurrentIndex;
    Ref<Object>& colGenContent;
    Ref<Object>& colAdvContent;
    std::int16_t& iIndex;

    std::string general(std::int16_t row) const { return element(colGenContent, row); }
    std::string advanced(std::int16_t row) const { return element(colAdvContent, row); }
    void report(tracing::Locals& l) const;

private:
    static std::string element(const Ref<Object>& collection, std::int16_t row);
};

}  // namespace canvas
