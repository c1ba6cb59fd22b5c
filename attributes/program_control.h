#pragma once
// Blocks that act on other programs: tasks are launched and suspended, subroutines called.

#include <array>

#include "attributes/attribute.h"
#include "host/collection.h"

namespace canvas {

/// The project's tasks, counted from 1.
inline constexpr std::int16_t taskCount = 8;

/// Eight entries of a block, one for each task. Any other index is error 9.
template <class T>
class PerTask {
public:
    T& operator[](std::int32_t index) {
        if (index < 1 || index > taskCount) raise(Error::subscript);
        return m_entries[static_cast<std::size_t>(index - 1)];
    }
    const T& operator[](std::int32_t index) const { return const_cast<PerTask&>(*this)[index]; }
    friend bool operator==(const PerTask&, const PerTask&) = default;
    const std::array<T, taskCount>& entries() const noexcept { return m_entries; }

private:
    std::array<T, taskCount> m_entries{};
};

/// How a launch block looks into the program of another task. The document floor knows how to read one.
class ProgramLookup {
public:
    virtual ~ProgramLookup() = default;
    /// Reads the program, with the boxes of a reading that fails, and tells whether it has a block of that ID.
    virtual bool hasBlock(const std::string& fileName, std::int16_t blockId) const = 0;
};

struct clsBVTRestartProgram final : Attribute<clsBVTRestartProgram> {
    PerTask<std::string> strArTask;  ///< names; empty where there is no task
    PerTask<bool> blnArTask;         ///< whether the block launches the task
    PerTask<std::int16_t> intArBlockNumber;
    std::int16_t iSelected = 0;      ///< the task shown, from 0
    const ProgramLookup* programs = nullptr;
    static const AttributeClass table;

    void setTaskName(Ref<Object> names);
    std::int16_t TaskCount() const noexcept { return taskCount; }
    bool ArChkTask(std::int16_t Index) const;
    void SetArChkTask(std::int16_t Index, bool chkValue);
    std::string ArTask(std::int16_t Index) const;
    void SetArTask(std::int16_t Index, std::string_view content);
    std::int16_t ArBlockNumber(std::int16_t Index) const;
    void SetArBlockNumber(std::int16_t Index, std::int16_t intBlockNumber);
    using AttributeObject::UpdateMatrix;
    /// Selects the task shown, from 0. The result says nothing.
    bool UpdateMatrix(std::int16_t i);

    void appendTo(std::string& line) const override;
    void AssignFromFile(std::int16_t intVarNum, std::string_view strNewValue) override;
    bool GetComboItem(std::int16_t& iIndex, Ref<Object>& colItem) override;
    /// Takes the host's project in place of a checker. A task that is defined must have the block; one that is not
    /// loses its launch flag, which makes the result False.
    bool PropertiesSyntaxCheck(Ref<Object> SyntaxValidation, std::int32_t lngBlockID,
                               std::string& strSyntaxMessage) override;
    void reportVariables(VariableSink& sink) const override;

protected:
    std::string rowText(std::int16_t row) const override;
    void storeCell(std::int16_t row, std::string_view text) override;
    void storePanel(std::int16_t row, std::string_view text) override;
    bool sameProperties(Object& other) const override;

private:
    void checkTask(Object& project, Object& task, std::int16_t index, std::int32_t lngBlockID,
                   std::string& strSyntaxMessage) const;
};

struct clsBVTSuspendProgram final : Attribute<clsBVTSuspendProgram> {
    PerTask<bool> blnArTask;  ///< whether the block suspends the task
    PerTask<bool> blnArTaskExist;
    std::int16_t iSelected = 0;  ///< the task shown, from 0
    static const AttributeClass table;

    void setTaskName(Ref<Object> names);
    std::int16_t TaskCount() const noexcept { return taskCount; }
    bool ArTaskExist(std::int16_t Index) const;
    void SetArTaskExist(std::int16_t Index, bool state);
    bool ArTask(std::int16_t Index) const;
    void SetArTask(std::int16_t Index, bool state);
    using AttributeObject::UpdateMatrix;
    bool UpdateMatrix(std::int16_t i);

    void appendTo(std::string& line) const override;
    void AssignFromFile(std::int16_t intVarNum, std::string_view strNewValue) override;
    bool GetComboItem(std::int16_t& iIndex, Ref<Object>& colItem) override;
    std::int16_t GetNumOfProperties() override { return taskCount; }
    std::string GetPropertyAt(std::int16_t iIndex) override;
    /// Takes the host's project in place of a checker. A stale task loses its flag without a word, which makes the
    /// result False.
    bool PropertiesSyntaxCheck(Ref<Object> SyntaxValidation, std::int32_t lngBlockID,
                               std::string& strSyntaxMessage) override;
    void reportVariables(VariableSink& sink) const override;

protected:
    std::string rowText(std::int16_t row) const override;
    void storeCell(std::int16_t, std::string_view) override {}
    void storePanel(std::int16_t row, std::string_view text) override;
    bool sameProperties(Object& other) const override;
};

struct clsBVTSuperBlock final : Attribute<clsBVTSuperBlock> {
    std::string strName;   ///< full path of the subroutine file
    std::string strTitle;  ///< as shown
    std::string strDocumentName;
    Ref<Object> SubroutineFilenameCol;
    Ref<Object> SubroutineFiletitleCol;
    static const AttributeClass table;

    void setDocumentName(std::string_view name) { strDocumentName = name; }
    void setSubroutineFilename(Ref<Object> names);
    /// Whether the block calls the very document that holds it, by trimmed names without regard to case.
    bool IsRecursive() const;

    void AssignFromFile(std::int16_t intVarNum, std::string_view strNewValue) override;
    bool GetComboItem(std::int16_t& iIndex, Ref<Object>& colItem) override;
    /// Calls no checker.
    bool PropertiesSyntaxCheck(Ref<Object> SyntaxValidation, std::int32_t lngBlockID,
                               std::string& strSyntaxMessage) override;
    void reportVariables(VariableSink& sink) const override;

protected:
    bool updateCell(CellEdit& edit) override;
    bool updatePanel(PanelEdit& edit) override;
    void appendValue(const Field& field, std::string& line) const override;
};

}  // namespace canvas
