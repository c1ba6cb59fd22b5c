#pragma once
// AttributeObject: what all block classes have in common, written once over their tables.
//
// A block class is its fields and its table:
//
//     struct clsBVTAbortMotion final : Attribute<clsBVTAbortMotion> {
//         std::string strDeceleration;
//         static const AttributeClass table;
//     };
//
// What it does differently is a named function that overrides one of the hooks below.

#include <memory>
#include <vector>

#include "attributes/block_attribute.h"
#include "attributes/field.h"
#include "attributes/panel_edit.h"

namespace canvas {

class AttributeObject : public IBlockAttribute {
public:
    virtual const AttributeClass& attributeClass() const noexcept = 0;

    /// A copy of the object with every field. The name is the protocol's own.
    virtual Ref<AttributeObject> IsTheSame() const = 0;
    /// True when every readable property of `vValue` equals this object's, text by exact comparison.
    bool SameAs(const Ref<Object>& vValue) const;
    /// `strDescription`, then the count of values, a blank, and the values: text between double quotes, a flag as 1 or
    /// 0, separated by one blank. A quote inside a value is not escaped.
    std::string OutputToFile(std::string_view strDescription) const;
    /// The same, onto the end of a line.
    virtual void appendTo(std::string& line) const;
    /// Takes value number `intVarNum`, counted from 1, out of a file line; a number beyond the class's is ignored.
    virtual void AssignFromFile(std::int16_t intVarNum, std::string_view strNewValue);

    bool FillMatrix() override;
    bool UpdateMatrix(bool bGeneralTab, std::int16_t iCurrentIndex, Ref<Object>& colGenContent,
                      Ref<Object>& colAdvContent, std::string& strError, std::int16_t& iIndex,
                      Ref<Object>& SyntaxValidation, std::int32_t& selStart, std::int32_t& selLength,
                      std::int32_t& dataType, bool& isLValue, Value& Value_, std::string& FormattedText) final;
    bool UpdateElementInMatrix(bool bGeneralTab, std::int16_t iCurrentIndex, std::string_view strNewData,
                               std::string& strError, Ref<Object>& SyntaxValidation, std::int32_t& selStart,
                               std::int32_t& selLength, std::int32_t& dataType, bool& isLValue, Value& Value_,
                               std::string& FormattedText) final;
    std::string GetElementFromMatrix(std::int16_t row, std::int16_t Col) override;
    std::int16_t MatrixRow() override;
    std::int16_t MatrixCol() override;
    bool GetComboItem(std::int16_t& iIndex, Ref<Object>& colItem) override;
    std::int16_t GetNumOfProperties() override;
    std::string GetPropertyAt(std::int16_t iIndex) override;
    bool PropertiesSyntaxCheck(Ref<Object> SyntaxValidation, std::int32_t lngBlockID,
                               std::string& strSyntaxMessage) override;

    /// A second panel tab that no class fills: all five answer 0, False or the empty text.
    std::int16_t AdvancedMatrixCol() { return 0; }
    std::int16_t AdvancedMatrixRow() { return 0; }
    std::string GetElementFromAdvancedMatrix(std::int16_t row, std::int16_t Col);
    bool GetAdvancedComboItem(std::int16_t& iIndex, Ref<Object>& colItem);
    bool IsAdvancedOn() { return false; }

    Value get(std::string_view member, Args args = {}) override;
    void put(std::string_view member, const Value& value, Args args = {}) override;
    std::string_view className() const noexcept override { return attributeClass().name; }
    void reportVariables(VariableSink& sink) const override;

    /// Hook: the row that has a limit of the class's own behind the common checks; -1 for none.
    virtual std::int16_t limitedRow() const { return -1; }
    /// Hook: the message when that row's limit refuses the text, else empty.
    virtual std::string_view refusal(std::string_view /*text*/) const { return {}; }

    static constexpr char tag = 0;
    void* face(const void* asked) noexcept override;

    /// Members that every attribute class offers behind its properties and its own operations.
    static std::span<const Member> commonMembers(bool withPanel = true) noexcept;

protected:
    AttributeObject() = default;
    AttributeObject(const AttributeObject& other) noexcept : IBlockAttribute(other) {}

    // Hooks: what a class does its own way.

    /// Commits one cell, or the whole panel. The common way runs over the table.
    virtual bool updateCell(CellEdit& edit);
    virtual bool updatePanel(PanelEdit& edit);
    /// A row's text for column 1 of the matrix.
    virtual std::string rowText(std::int16_t row) const;
    /// Stores a cell's text, or a row's text of a whole panel, into the fields.
    virtual void storeCell(std::int16_t row, std::string_view text);
    virtual void storePanel(std::int16_t row, std::string_view text);
    /// Rewrites a cell's text before anything looks at it.
    virtual void adjustCell(std::int16_t /*row*/, std::string& /*text*/) const {}
    /// Rows of the second tab, 0 for a class that does not look at it. Its texts go to the checker alone, without a
    /// range check.
    virtual std::int16_t advancedRows() const { return 0; }
    virtual void storeAdvancedCell(std::int16_t /*row*/, std::string_view /*text*/) {}
    virtual void storeAdvancedPanel(std::int16_t /*row*/, const std::string& /*text*/) {}
    /// One value of the file line, where its form is not the common one.
    virtual void appendValue(const Field& field, std::string& line) const;
    /// Whether every readable property of another object equals this one's.
    virtual bool sameProperties(Object& other) const;

    void setPresets();
    brxDatatype rowType(std::int16_t row) const;
    /// Writes column 1 of one row alone, as FillMatrix writes it or with a text given.
    void showCell(std::int16_t row, std::string text);

private:
    std::string cell(std::int16_t row, Column column) const;

    /// Column 1 as of the last FillMatrix. All other columns come from the table once that has run.
    struct Shown {
        bool filled = false;
        std::vector<std::string> texts;
    };
    std::unique_ptr<Shown> m_shown;  ///< null until something is shown
};

/// Gives a block class its table, its copy and its defaults.
template <class T>
class Attribute : public AttributeObject {
public:
    using Self = T;

    /// A new object with every field at its preset. `make<T>()` comes here.
    static Ref<T> create() { return Ref<T>(new T(prototype())); }

    const AttributeClass& attributeClass() const noexcept override { return T::table; }
    Ref<AttributeObject> IsTheSame() const override { return Ref<T>(new T(static_cast<const T&>(*this))); }

private:
    static const T& prototype() {
        static const T object = [] {
            T fresh;
            static_cast<Attribute&>(fresh).setPresets();
            return fresh;
        }();
        return object;
    }
};

}  // namespace canvas
