#include <gtest/gtest.h>

#include "tracing/options.h"
#include "tracing/report.h"

namespace canvas::tracing {
namespace {

struct Case {
    const char* name;
    std::int32_t limit;
    std::string text;
    std::string shown;
};

class FormatStringTest : public testing::TestWithParam<Case> {
    void TearDown() override { vbwSetOptions(); }
};

TEST_P(FormatStringTest, ShowsTheText) {
    vbwCommon.vbwDumpStringMaxLength = GetParam().limit;
    EXPECT_EQ(FormatString(GetParam().text), GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(
    All, FormatStringTest,
    testing::Values(
        Case{"QuotesAText", 0, "Start", "\"Start\""},
        Case{"QuotesAnEmptyText", 0, "", "\"\""},
        Case{"QuotesANumber", 0, "12", "\"12\""},
        Case{"LeavesQuotesInsideAlone", 0, "a\"b", "\"a\"b\""},
        Case{"LeavesASpecialValueAlone", 0, "{Empty}", "{Empty}"},
        Case{"LeavesAnyTextThatEndsInABraceAlone", 0, "if x }", "if x }"},
        Case{"NeitherCutsNorTranslatesASpecialValue", 2, "a\r\nb}", "a\r\nb}"},
        Case{"QuotesABraceThatDoesNotEndTheText", 0, "{a} ", "\"{a} \""},
        Case{"ShowsAPair", 0, "a\r\nb", "\"a<CrLf>b\""},
        Case{"ShowsALoneCarriageReturn", 0, "a\rb", "\"a<Cr>b\""},
        Case{"ShowsALoneLineFeed", 0, "a\nb", "\"a<Lf>b\""},
        Case{"ShowsLineFeedThenCarriageReturnAsTwo", 0, "\n\r", "\"<Lf><Cr>\""},
        Case{"ShowsACarriageReturnBeforeAPair", 0, "\r\r\n", "\"<Cr><CrLf>\""},
        Case{"KeepsATextOfTheLimit", 3, "abc", "\"abc\""},
        Case{"KeepsOneMoreThanTheLimitAndMarksIt", 3, "abcd", "\"abcd{...}\""},
        Case{"CutsAfterOneMoreThanTheLimit", 3, "abcdef", "\"abcd{...}\""},
        Case{"CutsBackFromABrokenPair", 3, "abc\r\nd", "\"abc{...}\""},
        Case{"KeepsAWholePairAtTheCut", 3, "ab\r\ncd", "\"ab<CrLf>{...}\""},
        Case{"KeepsALoneCarriageReturnAtTheCut", 3, "abc\rde", "\"abc<Cr>{...}\""},
        Case{"CutsBeforeItTranslates", 2, "\n\n\n\n", "\"<Lf><Lf><Lf>{...}\""},
        Case{"CountsUtf16Units", 2, "\xC3\xA4\xC3\xB6", "\"\xC3\xA4\xC3\xB6\""},
        Case{"CutsByUtf16Units", 1, "\xC3\xA4\xC3\xB6\xC3\xBC", "\"\xC3\xA4\xC3\xB6{...}\""},
        Case{"DoesNotSplitACharacterOfTwoUnits", 1, "a\xF0\x9F\x98\x80z", "\"a{...}\""},
        Case{"CutsNothingWithoutALimit", 0, std::string(40000, 'x'), '"' + std::string(40000, 'x') + '"'}),
    [](const auto& info) { return info.param.name; });

}  // namespace
}  // namespace canvas::tracing
