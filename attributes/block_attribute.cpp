#include "attributes/block_attribute.h"

namespace canvas {

bool IBlockAttribute::UpdateMatrix(bool, std::int16_t, Ref<Object>&, Ref<Object>&, std::string&, std::int16_t&,
                                   Ref<Object>&, std::int32_t&, std::int32_t&, std::int32_t&, bool&, Value&,
                                   std::string&) {
    return false;
}
bool IBlockAttribute::UpdateElementInMatrix(bool, std::int16_t, std::string_view, std::string&, Ref<Object>&,
                                            std::int32_t&, std::int32_t&, std::int32_t&, bool&, Value&, std::string&) {
    return false;
}
std::string IBlockAttribute::GetElementFromMatrix(std::int16_t, std::int16_t) { return {}; }
bool IBlockAttribute::GetComboItem(std::int16_t&, Ref<Object>&) { return false; }
std::string IBlockAttribute::GetPropertyAt(std::int16_t) { return {}; }
bool IBlockAttribute::PropertiesSyntaxCheck(Ref<Object>, std::int32_t, std::string&) { return false; }

std::span<const Member> IBlockAttribute::table() noexcept {
    using I = IBlockAttribute;
    static constexpr Member members[] = {
        method<&I::FillMatrix>("FillMatrix"),
        method<&I::UpdateMatrix>("UpdateMatrix"),
        method<&I::UpdateElementInMatrix>("UpdateElementInMatrix"),
        method<&I::GetElementFromMatrix>("GetElementFromMatrix"),
        method<&I::MatrixRow>("MatrixRow"),
        method<&I::MatrixCol>("MatrixCol"),
        method<&I::GetComboItem>("GetComboItem"),
        method<&I::GetNumOfProperties>("GetNumOfProperties"),
        method<&I::GetPropertyAt>("GetPropertyAt"),
        method<&I::PropertiesSyntaxCheck>("PropertiesSyntaxCheck"),
    };
    return members;
}

}  // namespace canvas
