#pragma once
// The mask "####.00".

#include <string>
#include <string_view>

namespace canvas::editors {

/// A number with two decimals, rounded half away from zero by its decimal digits, without a zero before the decimal
/// sign: "12.5" gives "12.50", "0.125" gives ".13". Text that is not numeric comes back as it is.
std::string withTwoDecimals(std::string_view text);

}  // namespace canvas::editors
