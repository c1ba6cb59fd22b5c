#include "hardware/servo_amplifier.h"

#include "hardware/records.h"
#include "host/numbers.h"
#include "host/ports.h"
#include "host/text.h"

namespace canvas {
namespace {

constexpr std::string_view hexadecimal = "2";
constexpr std::string_view suffix = " H";
/// Property 1 is set by the amplifier itself and never written.
constexpr std::int32_t firstWritten = 2;

bool isHexadecimal(const Value& format) { return textOrEmpty(format) == hexadecimal; }

std::string hexDigits(std::int32_t number) {
    std::string digits;
    for (auto rest = static_cast<std::uint32_t>(number); rest != 0 || digits.empty(); rest /= 16)
        digits.insert(digits.begin(), "0123456789ABCDEF"[rest % 16]);
    return digits;
}

/// The digits at the start, up to the blank before the suffix. Four digits from "8000" on are a negative word, which is
/// stored as 32768 and up. Error 6 beyond 32 bits, which could not be read again.
std::string decimalText(std::string_view shown) {
    const std::size_t end = shown.find_first_not_of("0123456789ABCDEFabcdef");
    const std::string_view digits = shown.substr(0, end);
    std::int32_t number = digits.empty() ? 0 : numbers::toLong("&H" + std::string(digits));
    if (number < 0) number += 65536;
    return numbers::textOf(number);
}

}  // namespace

void clsBVTRVQD::rowRead(std::int32_t number, Parameters) {
    Value& value = cell(PropertyValue, number - 1);
    std::string text = value.toText();
    if (isHexadecimal(cell(PropertyDisplayFormat, number - 1)))
        text = environment().utility->HexText(hexDigits(numbers::toLong(text))).append(suffix);
    value = std::move(text);
}

void clsBVTRVQD::putValue(store::Recordset& row, const PropertyColumns& columns, std::int32_t number) {
    if (number < firstWritten) return;
    std::string text = textOrEmpty(cell(PropertyValue, number - 1));
    if (text.empty()) return;
    if (isHexadecimal(row.field(columns.format))) text = decimalText(text);
    row.put(columns.value, std::move(text));
    row.put(columns.dirty, std::int16_t{1});
}

std::span<const Member> clsBVTRVQD::table() noexcept {
    using C = clsBVTRVQD;
    static constexpr Member members[] = {
        method<&C::ImportFromCSV>("ImportFromCSV"),
        method<&C::ExportToCSV>("ExportToCSV"),
        method<&C::GetNumberOfElements>("GetNumberOfElements"),
        method<&C::SetBlockMatrix>("SetBlockMatrix"),
        method<&C::GetBlockMatrix>("GetBlockMatrix"),
        method<&C::SetDBPath>("SetDBPath"),
        method<&C::ReadFromDB>("ReadFromDB"),
        method<&C::RestoreDefault>("RestoreDefault"),
        method<&C::SaveToDB>("SaveToDB"),
        method<&C::ResetDirtyBits>("ResetDirtyBits"),
    };
    return members;
}

}  // namespace canvas
