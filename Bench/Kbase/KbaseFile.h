// Database file of the record database, XML with an element for each record:
//   <Record class="CLASS" key="KEY">
//     <Attribute number="1650" name="AirDeviceDimData" hex="0A00...">   the bytes, which alone count
//       <is>Fnc=10 D1=200</is>                                         what they mean, one an element, for the reader
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

    // An attribute's bytes, empty when the record has none of that number.
    std::string BytesOf(int attribute) const;
};

class KbaseFile {
 public:
    // False when the file cannot be read, is something else or is cut off.
    bool Read(const std::string& path);

    // Ordered by class and key.
    const std::map<std::pair<std::string, std::string>, KbaseRecord>& records() const { return records_; }
    const KbaseRecord* Find(const std::string& className, const std::string& key) const;  // null when there is none

    // Both write the file. False when it cannot be written.
    bool Save(const KbaseRecord& record);
    bool Delete(const std::string& className, const std::string& key);

 private:
    bool Write() const;

    std::string path_;
    std::map<std::pair<std::string, std::string>, KbaseRecord> records_;
};

}  // namespace bench
