// Database file of the record database: a text file (KbaseText.h) with one block a record:
//   record CLASS "KEY"
//     ATTRIBUTE NAME
//       hex 0A00...          the bytes, which alone are read back
//       is  Fnc=10 D1=200    what they mean, one line an element, for the reader
//   end
// Lines after "#" between records are comments.
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
    // False with the reason in `error`.
    bool Read(const std::string& path, std::string& error);

    // Ordered by class and key.
    const std::map<std::pair<std::string, std::string>, KbaseRecord>& records() const { return records_; }
    const KbaseRecord* Find(const std::string& className, const std::string& key) const;  // null when there is none

    // A new record is written at the end of the file; replacing or deleting one writes the file anew. False when the
    // file cannot be written.
    bool Save(const KbaseRecord& record);
    bool Delete(const std::string& className, const std::string& key);

 private:
    bool Write();

    std::string path_;
    std::map<std::pair<std::string, std::string>, KbaseRecord> records_;
    long long end_ = 0;  // where the last line begins
};

}  // namespace bench
