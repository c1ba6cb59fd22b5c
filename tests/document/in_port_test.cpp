#include "document/in_port.h"

#include <gtest/gtest.h>

#include "tests/host/raised.h"

namespace canvas {
namespace {

TEST(InPort, BeginsWithoutSource) {
    const auto port = make<clsBVTInPort>();
    EXPECT_EQ(port->get("BlockID"), Value(0.0F));
    EXPECT_EQ(port->get("FromTopPort"), Value(false));
}

TEST(InPort, TheIDIsAFloatingPointValue) {
    const auto port = make<clsBVTInPort>();
    port->put("BlockID", std::int16_t{12});
    EXPECT_EQ(port->get("BlockID"), Value(12.0F));
    EXPECT_EQ(port->get("BlockID").toText(), "12");
    port->put("BlockID", "2.5");
    EXPECT_EQ(port->get("BlockID").toText(), "2.5");
    EXPECT_EQ(raisedBy([&] { port->put("BlockID", "x"); }), 13);
}

TEST(InPort, RemembersThePortOfItsSource) {
    const auto port = make<clsBVTInPort>(7.0F, true);
    EXPECT_EQ(port->get("FromTopPort"), Value(true));
    port->put("FromTopPort", "False");
    EXPECT_FALSE(port->blnFromTopPort);
}

}  // namespace
}  // namespace canvas
