// Decoding gives valid UTF-8, which encoding and decoding give back; Windows-1252 comes back byte for byte.

#include "host/encoding.h"

#include "fuzz/fuzzing.h"
#include "host/text.h"

namespace canvas::fuzz {
namespace {

constexpr std::string_view mark = "\xEF\xBB\xBF";

void check(const std::string& bytes) {
    const std::string text = encoding::decode(bytes);
    require(text::isUtf8(text), "what was decoded is UTF-8");
    const std::string encoded = encoding::encode(text);
    require(encoding::decode(encoded) == text, "what was encoded decodes to the text");
    const bool windows1252 = !bytes.starts_with(mark) && !text::isUtf8(bytes);
    require(!windows1252 || encoded == bytes, "Windows-1252 is encoded as it was");
    const std::string any = encoding::encode(bytes);
    require(!text::isUtf8(bytes) || encoding::decode(any) == bytes, "no text is lost");
    require(text::length(text::upper(text)) == text::length(text::lower(text)), "case keeps the number of characters");
    const std::size_t length = text::length(text);
    require(text::left(text, length) == text, "the whole length is the whole text");
    const std::string_view half = text::left(text, length / 2);
    const std::size_t cut = length / 2 - text::length(half);
    require(text.starts_with(half) && cut <= 1, "a cut leaves out no more than the character it falls into");
    require(text::withoutLast(text, length - length / 2) == half, "a cut is the same from either end");
}

}  // namespace
}  // namespace canvas::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size > canvas::fuzz::longestInput) return 0;
    canvas::fuzz::check(std::string(canvas::fuzz::textOf(data, size)));
    return 0;
}
