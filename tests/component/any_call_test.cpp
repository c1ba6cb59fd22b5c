// Any member of any class, called with anything, by hosts that come back from every question: whatever comes of it is
// a result or a failure that the boundary knows.

#include <list>
#include <set>

#include <gtest/gtest.h>

#include "component/class_list.h"
#include "host/collection.h"
#include "tests/component/hostile.h"
#include "tests/document/fixture.h"
#include "tests/editors/playing.h"

namespace canvas::component::testing {
namespace {

constexpr int callsOfARound = 400;

struct Chance {
    std::uint64_t state;
    std::size_t below(std::size_t count) {
        state = state * 6364136223846793005u + 1442695040888963407u;
        return static_cast<std::size_t>(state >> 33) % count;
    }
};

/// One object under fire, and what it is fired at with.
class Round {
public:
    Round(const Class& type, std::uint64_t seed) : Round(type.members(), type.create(), seed) {}
    Round(const MemberList& members, const Ref<Object>& target, std::uint64_t seed)
        : m_members(members), m_chance{seed}, m_target(dispatchOf(target)) {
        m_host = asObject(makeChaos());
    }
    Round(const Round&) = delete;
    Round& operator=(const Round&) = delete;

    void run(int calls = callsOfARound) {
        for (int i = 0; i < calls; ++i) anyCall();
    }

private:
    /// A host's object that knows every name, and does anything before it answers anything.
    class Chaos final : public FakeHost {
    public:
        explicit Chaos(Round& round) : m_round(round) {}
        HRESULT GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID* numbers) override {
            numbers[0] = 1;
            return S_OK;
        }
        HRESULT Invoke(DISPID number, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT* result, EXCEPINFO*,
                       UINT*) override {
            if (number == DISPID_NEWENUM || ++m_round.m_asked > 50) return DISP_E_MEMBERNOTFOUND;
            if (m_round.m_depth < 3) m_round.anyCall();
            for (UINT i = 0; i < parameters->cArgs; ++i)
                if (m_round.m_chance.below(2)) giveBackAnything(parameters->rgvarg[i]);
            if (result) give(m_round.anyValue(), *result);
            return m_round.m_chance.below(8) ? S_OK : E_FAIL;
        }

    private:
        void giveBackAnything(VARIANT& reference) {
            try {
                giveBack(m_round.anyValue(), reference);
            } catch (const RuntimeError&) {  // a kind that the reference does not take
            }
        }
        Round& m_round;
    };

    Com<FakeHost> makeChaos() {
        Com<FakeHost> host;
        *host.out() = new Chaos(*this);
        return host;
    }

    Value anyValue() {
        switch (m_chance.below(14)) {
            case 0: return {};
            case 1: return Null{};
            case 2: return true;
            case 3: return std::int32_t{1};
            case 4: return std::int32_t{static_cast<std::int32_t>(m_chance.below(12)) - 2};
            case 5: return std::int32_t{40000};
            case 6: return 2.5;
            case 7: return "a=1;b=2;1,2,c,1;";
            case 8: return "12";
            case 9: return Ref<Object>();
            case 10: return numbers(8);
            case 11: return Value(Ref<Object>(make<Collection>()));
            case 12: return Value(anyObject());
            default: return Value(m_host);
        }
    }
    /// Never the target: an object that holds itself would stay for ever.
    Ref<Object> anyObject() {
        const Class& type = *classNamed(std::array{"clsBVTBlock", "clsBVTEdge", "clsBVTBlockCol", "clsBVTMoveAxis",
                                                   "clsBVTSetVariable", "clsBVTUndoBuffer"}[m_chance.below(6)]);
        return type.create();
    }

    void anyCall() {
        if (m_depth == 0) m_asked = 0;
        ++m_depth;
        const auto number = static_cast<DISPID>(1 + m_chance.below(static_cast<std::size_t>(m_members.count())));
        const NumberedMember& member = m_members[number];
        const bool writes = member.isProperty() && (!member.isReadable() || (member.isWritable() && m_chance.below(2)));
        std::vector<OwnedVariant> given(static_cast<std::size_t>(member.arguments() + writes));
        for (OwnedVariant& argument : given) give(anyValue(), argument);
        std::vector<VARIANT> arguments;
        for (OwnedVariant& argument : given)
            arguments.push_back(!writes && m_chance.below(2) ? referenceTo(argument) : static_cast<VARIANT>(argument));
        const Outcome outcome =
            invokeRaw(m_target.get(), number, writes ? DISPATCH_PROPERTYPUT : DISPATCH_METHOD, arguments);
        static const std::set<HRESULT> known = {S_OK, DISP_E_TYPEMISMATCH, DISP_E_OVERFLOW, DISP_E_EXCEPTION};
        EXPECT_TRUE(known.contains(outcome.result)) << member.name << " gave " << std::hex << outcome.result;
        EXPECT_EQ(outcome.result == DISP_E_EXCEPTION, outcome.scode != 0) << member.name;
        --m_depth;
    }

    const MemberList& m_members;
    Chance m_chance;
    int m_depth = 0, m_asked = 0;
    Ref<Object> m_host;
    Com<IDispatch> m_target;
};

using AnyCall = fixture::Drawing;  // whose disk and user are not the machine's

TEST_F(AnyCall, EndsInAResultOrAFailureThatIsKnown) {
    const LONG held = Held::objects;
    for (const Class& type : classes()) {
        if (!type.create || type.name == "Library") continue;  // whose settings are the process's
        if (type.members().count() == 0) continue;
        SCOPED_TRACE(type.name);
        for (std::uint64_t seed = 1; seed <= 10; ++seed) Round(type, seed).run();
    }
    EXPECT_EQ(Held::objects, held) << "nothing stays";
}

TEST_F(AnyCall, OfAShownFormAndItsControlsEndsSoToo) {
    const LONG held = Held::objects;
    for (const editors::FormEntry& entry : editors::forms()) {
        SCOPED_TRACE(entry.name);
        for (std::uint64_t seed = 1; seed <= 5; ++seed) {
            editors::Playing play;
            int depth = 0;
            std::list<Round> rounds;  // the form may keep their hosts
            play.user->script = [&](Object& shown) {
                if (++depth < 3) {
                    const Ref<editors::Form> form(&static_cast<editors::Form&>(shown));
                    rounds.emplace_back(membersOf(*form), form, seed).run(40);
                    for (const Ref<editors::Control>& control : form->controls())
                        rounds.emplace_back(membersOf(*control), control, seed * 31).run(20);
                }
                --depth;
            };
            try {
                entry.make()->Show();
            } catch (const RuntimeError&) {  // a form that was made ready by strangers
            }
        }
    }
    EXPECT_EQ(Held::objects, held) << "nothing stays";
}

}  // namespace
}  // namespace canvas::component::testing
