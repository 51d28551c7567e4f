// Dictionary of the record database: the classes with their ids and the attributes with number, name and form. It is a
// text file that begins with "Kbase dictionary 1", ends with "end of dictionary" and has between them lines
//   class SYMBOL ID ID
//   attribute NUMBER text   FEWEST MOST NAME             FEWEST and MOST count bytes
//   attribute NUMBER binary FEWEST MOST NAME LAYOUT...   FEWEST and MOST count elements
// and comments after "#". A layout names the fields of one element, "Qv:f32 Dp:f32 Lw63:u8 ...", packed and
// little-endian; types are u8, i16 and f32. Decoding is driven by it alone, so a person and a test read a record
// through the dictionary and not through the code that made it.
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
    std::vector<KbaseField> layout;  // none for a text
    int fewest = 0;
    int most = 0;

    bool isText() const { return layout.empty(); }
    // Bytes of one element; 1 for a text.
    size_t elementSize() const;
    // One line for a text; for binary one line an element, "Qv=120 Dp=18.5".
    std::vector<std::string> Decode(std::string_view bytes) const;
};

class KbaseDictionary {
 public:
    // False, and the dictionary is empty, when the file cannot be read, is something else or is cut off.
    bool Read(const std::string& path);

    // Null and empty when there is none.
    const KbaseClassId* FindClass(const std::string& symbol) const;
    std::string ClassSymbol(const KbaseClassId& id) const;
    const KbaseAttributeForm* FindAttribute(int number) const;

 private:
    bool TakeLine(const std::string& line);

    std::map<std::string, KbaseClassId> classes_;
    std::map<int, KbaseAttributeForm> attributes_;
};

}  // namespace bench
