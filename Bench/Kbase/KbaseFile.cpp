#include "KbaseFile.h"

#include <fstream>

#include "BenchTexts.h"
#include "KbaseText.h"

namespace bench {
namespace {

const char kFirstLine[] = "Kbase database 1";
const char kLastLine[] = "end of database";

std::string AfterBlanks(const std::string& line) {
    const size_t start = line.find_first_not_of(" \t");
    return start == std::string::npos ? std::string() : line.substr(start);
}

bool StartsWith(const std::string& text, const char* beginning) {
    return text.rfind(beginning, 0) == 0;
}

// Takes the lines of a file one by one; Take gives false for a line that cannot stand there.
class DatabaseParser {
 public:
    bool Take(const std::string& rawLine) {
        const std::string line = AfterBlanks(rawLine);
        if (ended_) return line.empty();
        if (inRecord_) return TakeInRecord(line);
        if (line.empty() || line[0] == '#') return true;
        if (line == kLastLine) {
            ended_ = true;
            return true;
        }
        return BeginRecord(line);
    }

    bool ended() const { return ended_; }
    std::vector<KbaseRecord>& records() { return records_; }

 private:
    bool BeginRecord(const std::string& line) {
        const std::vector<std::string> words = Words(line);
        KbaseRecord record;
        if (words.size() != 3 || words[0] != "record" || !FromEscaped(words[2], record.key)) return false;
        record.className = words[1];
        if (FindKbaseRecord(records_, record.className, record.key)) return false;
        records_.push_back(record);
        inRecord_ = true;
        attribute_ = nullptr;
        return true;
    }

    bool TakeInRecord(const std::string& line) {
        if (line == "end") {
            inRecord_ = false;
            return true;
        }
        if (StartsWith(line, "hex")) return attribute_ && FromHex(AfterBlanks(line.substr(3)), attribute_->bytes);
        if (StartsWith(line, "is ")) {
            if (!attribute_) return false;
            attribute_->decoded.push_back(AfterBlanks(line.substr(3)));
            return true;
        }
        const std::vector<std::string> words = Words(line);
        if (words.size() != 2) return false;
        long number = 0;
        if (!ReadNumber(words[0], number) || number <= 0) return false;
        const auto [place, isNew] = records_.back().attributes.emplace(static_cast<int>(number), KbaseAttribute());
        attribute_ = &place->second;
        attribute_->name = words[1];
        return isNew;
    }

    std::vector<KbaseRecord> records_;
    KbaseAttribute* attribute_ = nullptr;
    bool inRecord_ = false;
    bool ended_ = false;
};

}  // namespace

std::string BytesOf(const KbaseRecord& record, int attribute) {
    const auto found = record.attributes.find(attribute);
    return found == record.attributes.end() ? std::string() : found->second.bytes;
}

bool ReadKbaseDatabase(const std::string& path, std::vector<KbaseRecord>& records, std::string& error) {
    records.clear();
    std::vector<std::string> lines;
    if (!ReadLines(path, lines)) {
        error = path + " cannot be read.";
        return false;
    }
    if (lines.empty() || lines.front() != kFirstLine) {
        error = path + " is no database.";
        return false;
    }
    DatabaseParser parser;
    for (size_t i = 1; i < lines.size(); ++i) {
        if (parser.Take(lines[i])) continue;
        error = path + " line " + std::to_string(i + 1) + " is no line of a database.";
        return false;
    }
    if (!parser.ended()) {
        error = path + " is cut off.";
        return false;
    }
    records.swap(parser.records());
    return true;
}

std::string KbaseRecordText(const KbaseRecord& record) {
    std::string text = "record " + record.className + ' ' + Escaped(record.key) + '\n';
    for (const auto& [number, attribute] : record.attributes) {
        text += "  " + std::to_string(number) + ' ' + attribute.name + '\n';
        text += "    hex " + Hex(attribute.bytes) + '\n';
        for (const std::string& line : attribute.decoded)
            text += "    is  " + line + '\n';
    }
    return text + "end\n";
}

bool WriteKbaseDatabase(const std::string& path, const std::vector<KbaseRecord>& records, std::string& error) {
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file << kFirstLine << "\n\n";
    for (const KbaseRecord& record : records)
        file << KbaseRecordText(record) << '\n';
    file << kLastLine << '\n';
    file.flush();
    if (file) return true;
    error = path + " cannot be written.";
    return false;
}

KbaseRecord* FindKbaseRecord(std::vector<KbaseRecord>& records, const std::string& className, const std::string& key) {
    for (KbaseRecord& record : records)
        if (record.className == className && record.key == key) return &record;
    return nullptr;
}

}  // namespace bench
