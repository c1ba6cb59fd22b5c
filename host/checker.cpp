#include "host/checker.h"

#include <functional>

#include "host/convert.h"

namespace canvas {

bool SyntaxChecker::check(std::string_view expression, std::int32_t blockId, std::int16_t index) {
    const Value status = invoke(m_checker, "checkexpression", expression, std::ref(blockId), std::ref(index));
    return status.toDouble() == 0;
}

void SyntaxChecker::result(std::int32_t& dataType, bool& isLValue, Value& value, std::string& formatted) {
    invoke(m_checker, "GetResult", std::ref(dataType), std::ref(isLValue), std::ref(value), std::ref(formatted));
}

Checked SyntaxChecker::result() {
    Checked found;
    result(found.dataType, found.isLValue, found.value, found.formatted);
    return found;
}

void SyntaxChecker::complaint(std::string& text, std::int32_t& selStart, std::int32_t& selLength) {
    // It returns a number as well, which says nothing that the text does not.
    invoke(m_checker, "GetErrorInfo", std::ref(text), std::ref(selStart), std::ref(selLength));
}

Complaint SyntaxChecker::complaint() {
    Complaint found;
    complaint(found.text, found.selStart, found.selLength);
    return found;
}

}  // namespace canvas
