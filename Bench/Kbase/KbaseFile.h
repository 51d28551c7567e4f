// Database file of the record database: XML with an element for each record.
//   <Record class="CLASS" key="KEY">
//     <Attribute number="1650" name="AirDeviceDimData" hex="0A00...">   the bytes; only they are read
//       <is>Fnc=10 D1=200</is>                                         decoded, one line per element, for people
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace bench {

struct KbaseAttribute {
    std::string name;
    std::string bytes;
    std::vector<std::string> decoded;
};

struct KbaseRecord {
    std::string className;
    std::string key;
    std::map<int, KbaseAttribute> attributes;

    // Returns an attribute's bytes; empty when the record does not have it.
    std::string BytesOf(int attribute) const;
};

class KbaseFile {
 public:
    // Returns false when the file cannot be read, has another format or is truncated.
    bool Read(const std::string& path);

    // Ordered by class and key.
    const std::map<std::pair<std::string, std::string>, KbaseRecord>& records() const { return records_; }
    const KbaseRecord* Find(const std::string& className, const std::string& key) const;  // null when there is none

    // Both write the file and return false when that fails.
    bool Save(const KbaseRecord& record);
    bool Delete(const std::string& className, const std::string& key);

 private:
    bool Write() const;

    std::string path_;
    std::map<std::pair<std::string, std::string>, KbaseRecord> records_;
};

}  // namespace bench
