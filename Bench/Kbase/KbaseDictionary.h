// Dictionary of the record database: the classes with their ids, and the attributes with number, name and form. It is a
// text file that begins with "Kbase dictionary 1", ends with "end of dictionary" and contains the lines
//   class SYMBOL ID ID
//   attribute NUMBER text   MIN MAX NAME             MIN and MAX count bytes
//   attribute NUMBER binary MIN MAX NAME LAYOUT...   MIN and MAX count elements
// and comments after "#". A layout lists the fields of one element, "Qv:f32 Dp:f32 Lw63:u8 ...", packed and
// little-endian; types are u8, i16 and f32. Records are decoded by the dictionary alone, independently of the code that
// wrote them.
#pragma once

#include <array>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace bench {

using KbaseClassId = std::array<long, 2>;

struct KbaseField {
    std::string name;
    size_t size;  // 1, 2 or 4 bytes: u8, i16, f32
};

struct KbaseAttributeForm {
    std::string name;
    std::vector<KbaseField> layout;  // empty for a string
    int minCount = 0;
    int maxCount = 0;

    bool isText() const { return layout.empty(); }
    // Returns the bytes of one element; 1 for a string.
    size_t elementSize() const;
    // Returns one line for a string, or one line per element for binary data, "Qv=120 Dp=18.5".
    std::vector<std::string> Decode(std::string_view bytes) const;
};

class KbaseDictionary {
 public:
    // Returns false and leaves the dictionary empty when the file cannot be read, has another format or is truncated.
    bool Read(const std::string& path);

    // Return null or an empty string when there is none.
    const KbaseClassId* FindClass(const std::string& symbol) const;
    std::string ClassSymbol(const KbaseClassId& id) const;
    const KbaseAttributeForm* FindAttribute(int number) const;

 private:
    bool TakeLine(const std::string& line);

    std::map<std::string, KbaseClassId> classes_;
    std::map<int, KbaseAttributeForm> attributes_;
};

}  // namespace bench
