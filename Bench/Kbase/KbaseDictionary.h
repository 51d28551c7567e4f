// Dictionary of the record database: the classes with their ids and the attributes with number, name and form. It is a
// text file that opens with "Kbase dictionary 1" and closes with "end of dictionary", between them lines
//   class SYMBOL ID ID
//   attribute NUMBER text   FEWEST MOST NAME             FEWEST and MOST count bytes
//   attribute NUMBER binary FEWEST MOST NAME LAYOUT...   FEWEST and MOST count elements
// and comments after "#". A file that breaks these rules, or lacks its last line, is no dictionary.
#pragma once

#include <array>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "KbaseLayout.h"

namespace bench {

using KbaseClassId = std::array<long, 2>;

struct KbaseAttributeForm {
    std::string name;
    KbaseLayout layout;  // empty for a text
    int fewest = 0;
    int most = 0;

    bool isText() const { return layout.empty(); }
    size_t elementSize() const { return isText() ? 1 : layout.size(); }
    // One line for a text, in quotes; for binary one line an element.
    std::vector<std::string> Decode(std::string_view bytes) const;
};

class KbaseDictionary {
 public:
    // False with the reason in `error`; the dictionary is empty then.
    bool Read(const std::string& path, std::string& error);

    // Null and empty when there is none.
    const KbaseClassId* FindClass(const std::string& symbol) const;
    std::string ClassSymbol(const KbaseClassId& id) const;
    const KbaseAttributeForm* FindAttribute(int number) const;

 private:
    bool ReadLine(const std::vector<std::string>& words);

    std::map<std::string, KbaseClassId> classes_;
    std::map<int, KbaseAttributeForm> attributes_;
};

}  // namespace bench
