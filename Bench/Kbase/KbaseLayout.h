// Binary layout of one element of an attribute, as the dictionary writes it: "Qv:f32 Dp:f32 Lw63:u8 ...". Fields lie
// packed, one after the other, little-endian. Decoding is driven by the layout alone, so a person and a test read a
// record through the dictionary and not through the code that made it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace bench {

struct KbaseField {
    enum class Type { kU8, kI16, kF32 };
    std::string name;
    Type type;
};

class KbaseLayout {
 public:
    // Words "name:type" with type u8, i16 or f32; false, and the layout empty, when one of them is none.
    bool Parse(const std::vector<std::string>& words);

    bool empty() const { return fields_.empty(); }
    // Size of one element in bytes.
    size_t size() const;
    // "Qv=120 Dp=18.5"; `element` holds size() bytes.
    std::string Decode(std::string_view element) const;

 private:
    std::vector<KbaseField> fields_;
};

// The shortest decimal text that reads back as the same number.
std::string ShortestDecimal(float value);

}  // namespace bench
