#pragma once
// clsBVTInPort: one incoming connection of a block.

#include "host/members.h"

namespace canvas {

class clsBVTInPort final : public Tabled<clsBVTInPort> {
public:
    static constexpr std::string_view name = "clsBVTInPort";
    static std::span<const Member> table() noexcept;
    void reportVariables(VariableSink& sink) const override;

    clsBVTInPort() = default;
    clsBVTInPort(float BlockID, bool FromTopPort) noexcept : sngBlockID(BlockID), blnFromTopPort(FromTopPort) {}

    float sngBlockID = 0;  ///< of the source; hosts hold it in a single, so it is one here
    bool blnFromTopPort = false;
};

}  // namespace canvas
