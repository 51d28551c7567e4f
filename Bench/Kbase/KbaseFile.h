// Database file of the record database: a text file that opens with "Kbase database 1" and closes with "end of
// database", between them one block a record:
//   record CLASS "KEY"
//     ATTRIBUTE NAME
//       hex 0A00...          the bytes, which alone are read back
//       is  Fnc=10 D1=200    what they mean, one line an element, for the reader
//   end
// Lines after "#" between records are comments. Failures are false with the reason in `error`.
#pragma once

#include <map>
#include <string>
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
};

// An attribute's bytes, empty when the record has none of that number.
std::string BytesOf(const KbaseRecord& record, int attribute);

bool ReadKbaseDatabase(const std::string& path, std::vector<KbaseRecord>& records, std::string& error);
bool WriteKbaseDatabase(const std::string& path, const std::vector<KbaseRecord>& records, std::string& error);

// One record as its block of the file.
std::string KbaseRecordText(const KbaseRecord& record);

// Null when there is none.
KbaseRecord* FindKbaseRecord(std::vector<KbaseRecord>& records, const std::string& className, const std::string& key);

}  // namespace bench
