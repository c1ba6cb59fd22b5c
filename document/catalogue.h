#pragma once
// The catalogue: the closed set of block types, their numbers, display names, ports and attribute classes.

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "attributes/attribute.h"

namespace canvas {

/// Numbers as program files keep them; 28 and 29 are not assigned.
enum enuBlockType : std::int16_t {
    CHANGEDYNAMICS = 0,
    HOMEAXIS = 1,
    MOVEAXIS = 2,
    GEARRATIO = 3,
    JOGAXIS = 4,
    SCALECAM = 5,
    CAMONOFF = 6,
    SERVOONOFF = 7,
    ABORTMOTION = 8,
    GEARINGONOFF = 9,
    RESETFAULT = 10,
    DEFINEPOSITION = 11,
    INCREMENTPOSITION = 12,
    LATCHONOFF = 13,
    IFEVENT = 14,
    ONTIME = 15,
    RESTARTPROGRAM = 16,
    PROGRAMSTART = 17,
    IFFAULT = 18,
    SUSPENDPROGRAM = 19,
    PROGRAMEND = 20,
    MESSAGEOUT = 21,
    MESSAGEIN = 22,
    SETVARIABLE = 23,
    PROGRAMMABLELIMITSWITCH = 24,
    SUPERBLOCK = 25,
    LATCHTARGET = 26,
    NodeText = 27,
    CAMSHIFT = 30,
    InputBlock = 31,
    Torque = 32,
};

/// State of a block in a connection check; a warning is never given.
enum enuBlockStatus : std::int16_t { blockOK = 0, blockWarning = 1, blockError = 2 };

/// One in-port and one output port, unless told otherwise.
enum class Ports : std::uint8_t { single, dual, noIn, noOut, none };

struct BlockClass {
    enuBlockType type;
    std::string_view member;       ///< of enuBlockType
    std::string_view displayName;
    Ports ports;
    Ref<AttributeObject> (*make)();  ///< null while the class is still to come
};

/// All block types, by rising number.
std::span<const BlockClass> catalogue() noexcept;
/// Null for a number that is not assigned.
const BlockClass* blockClass(std::int16_t type) noexcept;

inline constexpr std::int16_t highestBlockType = 32;
/// Error 9 outside 0 to 32; empty for 28 and 29.
std::string_view blockName(std::int16_t type);
/// The number of the first display name that equals the text, case included; 0 when there is none, which callers
/// must take for what it is. The empty text gives 28.
std::int16_t blockTypeOf(std::string_view displayName) noexcept;

/// A new attribute object; a number without a class is told in a box and gives Nothing.
Ref<Object> newAttribute(std::int16_t type);

/// The factory as hosts create it.
class clsBVTGetBlockObject final : public Tabled<clsBVTGetBlockObject> {
public:
    static constexpr std::string_view name = "clsBVTGetBlockObject";
    static std::span<const Member> table() noexcept;
    Ref<Object> GetObject(std::int16_t intBlockType) { return newAttribute(intBlockType); }
};

}  // namespace canvas
