#pragma once
// What the values of a record store are checked for.

#include <optional>
#include <string>
#include <string_view>

#include "cli/store_modules.h"

namespace canvas::cli {

/// Names of the rules, as a finding shows them.
namespace rule {
inline constexpr std::string_view damage = "damage";             ///< the file itself
inline constexpr std::string_view unreadable = "unreadable";     ///< a module, table or line that cannot be read
inline constexpr std::string_view missing = "missing";           ///< a property that the query does not give
inline constexpr std::string_view type = "type";                 ///< a value that is not of its property's type
inline constexpr std::string_view bounds = "bounds";             ///< a number outside its property's bounds
inline constexpr std::string_view list = "list";                 ///< none of the items of its property's list
inline constexpr std::string_view readOnly = "read-only";        ///< a property that nobody may set
inline constexpr std::string_view notTaken = "not-taken";        ///< a value that the module did not save
inline constexpr std::string_view unknown = "unknown";           ///< a line of a property that is not in the store
inline constexpr std::string_view otherModule = "other-module";  ///< a line that changes another module
inline constexpr std::string_view node = "node";                 ///< number, name or word counts of a remote node
inline constexpr std::string_view message = "message";           ///< a message type that does not fit the network
inline constexpr std::string_view unaddressed = "unaddressed";   ///< a node with words and without their address
inline constexpr std::string_view address = "address";  ///< an address that is none, or that another node holds
}  // namespace rule

struct StoreFinding {
    int line = 0;  ///< of an imported file; 0: none
    mtModuleType module = mtNone;
    std::int16_t number = 0;  ///< of a property; 0: none
    std::string name = {};    ///< of that property
    std::optional<std::string> node = {};
    std::string_view rule = {};
    std::string reason = {};
};

struct Fault {
    std::string_view rule;
    std::string reason;
};

/// What is wrong with a value, given as the store keeps it: hexadecimal ones in decimal.
std::optional<Fault> faultOf(const StoredProperty& property, std::string_view stored);

/// The text that the store keeps for what a user or the module shows; nothing for hexadecimal digits that are none.
std::optional<std::string> storedText(const StoredProperty& property, const std::string& shown);
/// The other way: "04D2 H" for a hexadecimal property, else the text itself.
std::string shownText(const StoredProperty& property, const std::string& stored);

}  // namespace canvas::cli
