#pragma once
// clsBVTDataValidation: the range check of typed-in values.

#include <string>
#include <string_view>

#include "attributes/datatypes.h"
#include "host/members.h"

namespace canvas {

/// A value may be a number or an expression, so text that is not numeric passes every check; only a numeric text can
/// fail. `strError` is written on failure only, and never cleared.
class clsBVTDataValidation final : public Tabled<clsBVTDataValidation> {
public:
    static constexpr std::string_view name = "clsBVTDataValidation";
    static std::span<const Member> table() noexcept;

    bool IsInteger(std::string_view strData, std::string& strError);
    bool IsFloat(std::string_view strData, std::string& strError);
    bool IsLong(std::string_view strData, std::string& strError);
    bool IsPositiveInteger(std::string_view strData, std::string& strError);
    bool IsPositiveFloat(std::string_view strData, std::string& strError);
    bool IsPositiveLong(std::string_view strData, std::string& strError);
    /// A negative number answers True and leaves the message of IsPositiveFloat behind: hosts rely on the answer.
    bool IsScaledInteger(std::string_view strData, std::string& strError);
    bool IsScaledLong(std::string_view strData, std::string& strError);
    /// Runs the check of a type; a type without one passes. `NameList` reaches only the check of table names.
    bool Validate(std::string_view strData, brxDatatype brxType, std::string& strError, Ref<Object>& NameList);
    /// Accepts every name: a cam block looks for its table itself.
    bool IsTableName(Ref<Object>& TableList, std::string_view strTableName, std::string& strError);
};

/// The check of a type without an object; what attribute classes call.
bool validate(std::string_view text, brxDatatype type, std::string& strError);

}  // namespace canvas
