#pragma once
// A property panel without a screen: commits cells and whole panels, and answers failures.

#include <algorithm>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "attributes/block_attribute.h"
#include "host/collection.h"
#include "tracing/handler.h"

namespace canvas::testing {

/// The arguments by reference after a commit, and its result. All start at values that no operation writes.
struct Outcome {
    bool result = false;
    std::string strError = "before";
    std::int16_t iIndex = 77;
    std::int32_t selStart = -5;
    std::int32_t selLength = -6;
    std::int32_t dataType = -7;
    bool isLValue = false;
    Value value = "before";
    std::string FormattedText = "before";
};

inline Outcome commitCell(IBlockAttribute& block, int row, std::string_view text, Ref<Object> checker,
                          bool generalTab = true) {
    Outcome out;
    out.result = block.UpdateElementInMatrix(generalTab, static_cast<std::int16_t>(row), text, out.strError, checker,
                                             out.selStart, out.selLength, out.dataType, out.isLValue, out.value,
                                             out.FormattedText);
    return out;
}

inline Outcome commitPanel(IBlockAttribute& block, int row, Ref<Object> texts, Ref<Object> checker,
                           bool generalTab = true) {
    Outcome out;
    Ref<Object> advanced;
    out.result = block.UpdateMatrix(generalTab, static_cast<std::int16_t>(row), texts, advanced, out.strError,
                                    out.iIndex, checker, out.selStart, out.selLength, out.dataType, out.isLValue,
                                    out.value, out.FormattedText);
    return out;
}

/// The panel's texts by row; the first element, which belongs to no row, cannot be read as text.
inline Ref<Object> panelOf(const std::vector<std::string>& rows) {
    const auto texts = make<Collection>();
    texts->Add(Null{});
    for (const std::string& row : rows) texts->Add(row);
    return texts;
}

inline std::vector<std::string> comboItems(IBlockAttribute& block, int row) {
    const auto items = make<Collection>();
    Ref<Object> target = items;
    auto index = static_cast<std::int16_t>(row);
    block.GetComboItem(index, target);
    std::vector<std::string> texts;
    for (std::int32_t place = 1; place <= items->Count(); ++place) texts.push_back(items->at(place).toText());
    return texts;
}

/// Answers failures one by one, the last answer for all that follow, and keeps them.
class Answering final : public tracing::ErrorHandler {
public:
    explicit Answering(std::initializer_list<tracing::Answer> answers) : m_answers(answers) {}

    std::vector<tracing::Failure> failures;

    tracing::Answer ask(const tracing::Failure& failure) override {
        failures.push_back(failure);
        return m_answers[std::min(failures.size(), m_answers.size()) - 1];
    }

private:
    std::vector<tracing::Answer> m_answers;
    tracing::WithErrorHandler m_inForce{*this};
};

}  // namespace canvas::testing
