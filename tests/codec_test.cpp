// codec_test.cpp - the block codec engine on small blocks of its own: when
// the length is judged, which pointer checks speak, how a get lays the wire
// image down (what the reports print is checked through every real block).
#include <string>
#include <vector>

#include "conf/blocks/codec.h"
#include "test_util.h"

namespace {

using bbconf::BlockCodec;
using bbconf::Check;
using bbconf::Direction;
using bbconf::Image;
using bbconf::Num;
using bbconf::Ptr;
using bbconf::Report;
using bbtest::hex;
using bbtest::output_of;
using bbtest::to_hex;
using Buf = std::vector<unsigned char>;

// A 6-byte record: a keep byte, an always byte, a keep u16 (wire 2..3 at
// local 2..3), then a local-only u16; 4 bytes on the wire.
constexpr bbconf::WireField kRows[] = {
    {0, 0, 1, 1, bbconf::kKeep},
    {1, 1, 1, 1, bbconf::kAlways},
    {2, 2, 2, 1, bbconf::kKeep},
    {0, 4, 2, 1, bbconf::kLocalOnly},
};

constexpr Direction quiet(int len, Check check, const char* text, Image image) {
    return Direction{len, check, text, {bbconf::kQuietWire, bbconf::kQuietRecord}, image, bbconf::kSilent,
                     bbconf::kSilent, bbconf::kSilent, Num::Len};
}

// The engine reads a block's packed form; these are packed at run time into
// room to spare.
using Packed = bbconf::PackedCodec<4, 128>;
Packed block(Direction set, Direction get) {
    return bbconf::pack<4, 128>(BlockCodec{{bbconf::rows_of(kRows)}, 6, set, get});
}

std::string hx(const Buf& b) { return to_hex(b.data(), b.size()); }

// Set: the keep marker per field width, the always byte, the local-only word
// cleared; First refuses before touching, After converts then refuses.
TEST(CodecEngine, SetJudgesTheLengthFirstOrAfter) {
    const struct { Check check; int len; const char* wire; const char* record; int ret; const char* out; } cases[] = {
        {Check::First, 4, "ff ff 12 34", "a0 ff 34 12 00 00", 4, ""},
        {Check::First, 4, "01 02 ff ff", "01 02 a2 a3 00 00", 4, ""},
        {Check::First, 4, "01 02 ff fe", "01 02 fe ff 00 00", 4, ""},
        {Check::First, 5, "01 02 03 04", "a0 a1 a2 a3 a4 a5", 0, "[ASSERT][fn:N]: too short\n"},
        {Check::After, 5, "01 02 03 04", "01 02 04 03 00 00", 0, "[ASSERT][fn:N]: too short\n"},
        {Check::None, 9, "01 02 03 04", "01 02 04 03 00 00", 4, ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.wire);
        const Packed b = block(quiet(4, c.check, "too short", Image::Direct), quiet(4, Check::None, "", Image::Direct));
        Buf wire = hex(c.wire), rec = hex("a0 a1 a2 a3 a4 a5");
        int r = -1;
        EXPECT_EQ(output_of([&] { r = bbconf::block_set(b, "fn", wire.data(), static_cast<unsigned char>(c.len), rec.data()); }),
                  c.out);
        EXPECT_EQ(r, c.ret);
        EXPECT_EQ(hx(rec), c.record);
    }
}

// Get: cleared (unmapped wire bytes 0), scratch (unmapped bytes as the record
// holds them) or direct (unmapped bytes left alone); a short buffer refused
// first writes nothing, refused after keeps what was written.
TEST(CodecEngine, GetImages) {
    const struct { Image image; Check check; unsigned buflen; const char* wire; int ret; } cases[] = {
        {Image::Direct, Check::None, 6, "01 02 04 03 ee ee ee", 6},
        {Image::Cleared, Check::None, 6, "01 02 04 03 00 00 ee", 6},
        {Image::Scratch, Check::None, 6, "01 02 04 03 05 06 ee", 6},
        {Image::Scratch, Check::First, 5, "ee ee ee ee ee ee ee", 0},
        {Image::Cleared, Check::After, 5, "01 02 04 03 00 00 ee", 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(static_cast<int>(c.image));
        const Packed b = block(quiet(6, Check::None, "", Image::Direct), quiet(6, c.check, "room", c.image));
        Buf rec = hex("01 02 03 04 05 06"), wire(7, 0xee);
        int r = -1;
        const std::string out = output_of([&] { r = bbconf::block_get(b, "fn", rec.data(), wire.data(), c.buflen); });
        EXPECT_EQ(out, c.ret ? "" : "[ASSERT][fn:N]: room\n");
        EXPECT_EQ(r, c.ret);
        EXPECT_EQ(hx(wire), c.wire);
        EXPECT_EQ(hx(rec), "01 02 03 04 05 06");
    }
}

// Pointer checks speak in their order with their own text, or refuse
// quietly; a First length check comes before them.
TEST(CodecEngine, PointerChecks) {
    Direction loud = quiet(4, Check::None, "", Image::Direct);
    loud.ptrs[0] = {Ptr::Record, "NULL != local"};
    loud.ptrs[1] = {Ptr::Wire, "NULL != wire"};
    const Packed b = block(quiet(4, Check::First, "len", Image::Direct), loud);
    Buf rec(6, 0), wire(4, 0);
    int r = -1;
    EXPECT_EQ(output_of([&] { r = bbconf::block_get(b, "g", static_cast<unsigned char*>(nullptr), nullptr, 4); }),
              "[ASSERT][g:N]: NULL != local\n");
    EXPECT_EQ(r, 0);
    EXPECT_EQ(output_of([&] { r = bbconf::block_get(b, "g", rec.data(), nullptr, 4); }), "[ASSERT][g:N]: NULL != wire\n");
    EXPECT_EQ(output_of([&] { r = bbconf::block_set(b, "s", nullptr, 4, rec.data()); }), "");
    EXPECT_EQ(output_of([&] { r = bbconf::block_set(b, "s", nullptr, 3, rec.data()); }), "[ASSERT][s:N]: len\n");
    EXPECT_EQ(r, 0);
}

// Packing: texts are kept once, a text that ends another shares its tail,
// and the rows of all tables follow each other (every real block's output
// checks what the packed form says).
constexpr bbconf::WireField kHeadRow[] = {{0, 0, 1, 2, bbconf::kKeep}};
// clang-format off
constexpr BlockCodec kTwoTables{
    {bbconf::rows_of(kHeadRow), bbconf::rows_of(kRows)},
    6,
    Direction{4, Check::First, "DataLen == Len", {{Ptr::Wire, "NULL != wire"}, bbconf::kQuietRecord}, Image::Direct,
              bbconf::kSilent, bbconf::kSilent, Report{"", Num::Zero, Num::Zero, bbconf::Bytes::Record, Num::Len},
              Num::Len},
    Direction{4, Check::First, "Len", {{Ptr::Wire, "NULL != wire"}, bbconf::kQuietRecord}, Image::Direct,
              bbconf::kSilent, bbconf::kSilent, bbconf::kSilent, Num::Len}};
// clang-format on
static_assert(bbconf::packed_rows(kTwoTables) == 5, "one head row and four rows");
static_assert(bbconf::packed_text(kTwoTables) == 15 + 13,
              "two texts, each terminated; the empty one is the end of another");

}  // namespace
