#include "KbaseFile.h"

#include <algorithm>
#include <fstream>
#include <sstream>

#include "BenchTexts.h"
#include "KbaseText.h"

namespace bench {
namespace {

using Records = std::map<std::pair<std::string, std::string>, KbaseRecord>;

const std::string kFirstLine = "Kbase database 1\n";
const std::string kLastLine = "end of database\n";

// Takes the lines of a file one by one; Take gives false for a line that cannot stand there.
class RecordReader {
 public:
    explicit RecordReader(Records& records) : records_(records) {}

    bool Take(const std::string& line) {
        std::istringstream words(line);
        std::string first, second;
        words >> first;
        const std::string rest = line.substr(std::min(line.find_first_not_of(" \t", first.size()), line.size()));
        if (!record_) return first.empty() || first[0] == '#' || (first == "record" && Begin(rest));
        if (line == "end") return record_ = nullptr, true;
        if (first == "hex") return attribute_ && FromHex(rest, attribute_->bytes);
        if (first == "is") return attribute_ && (attribute_->decoded.push_back(rest), true);
        long number = 0;
        if (!ReadNumber(first, number) || number <= 0 || !(words >> second) || !(words >> std::ws).eof()) return false;
        const auto [place, isNew] = record_->attributes.try_emplace(static_cast<int>(number));
        attribute_ = &place->second;
        attribute_->name = second;
        return isNew;
    }

    bool InRecord() const { return record_ != nullptr; }

 private:
    bool Begin(const std::string& classAndKey) {
        KbaseRecord record;
        const size_t blank = classAndKey.find(' ');
        if (blank == std::string::npos || !FromEscaped(classAndKey.substr(blank + 1), record.key)) return false;
        record.className = classAndKey.substr(0, blank);
        const auto [place, isNew] = records_.emplace(std::pair(record.className, record.key), record);
        record_ = &place->second;
        attribute_ = nullptr;
        return isNew;
    }

    Records& records_;
    KbaseRecord* record_ = nullptr;
    KbaseAttribute* attribute_ = nullptr;
};

std::string RecordText(const KbaseRecord& record) {
    std::string text = "record " + record.className + ' ' + Escaped(record.key) + '\n';
    for (const auto& [number, attribute] : record.attributes) {
        text += "  " + std::to_string(number) + ' ' + attribute.name + '\n';
        text += "    hex " + Hex(attribute.bytes) + '\n';
        for (const std::string& line : attribute.decoded)
            text += "    is  " + line + '\n';
    }
    return text + "end\n\n";
}

}  // namespace

std::string KbaseRecord::BytesOf(int attribute) const {
    const auto found = attributes.find(attribute);
    return found == attributes.end() ? std::string() : found->second.bytes;
}

bool KbaseFile::Read(const std::string& path, std::string& error) {
    *this = {};
    KbaseText text;
    if (!ReadKbaseText(path, "database", text, error)) return false;
    RecordReader reader(records_);
    size_t taken = 0;
    while (taken < text.lines.size() && reader.Take(text.lines[taken]))
        ++taken;
    if (taken < text.lines.size() || reader.InRecord()) {
        *this = {};
        error = KbaseLineError(path, "database", taken);
        return false;
    }
    path_ = path;
    end_ = text.end;
    return true;
}

const KbaseRecord* KbaseFile::Find(const std::string& className, const std::string& key) const {
    const auto found = records_.find({className, key});
    return found == records_.end() ? nullptr : &found->second;
}

bool KbaseFile::Save(const KbaseRecord& record) {
    const bool isNew = records_.insert_or_assign({record.className, record.key}, record).second;
    if (!isNew) return Write();
    const std::string text = RecordText(record);
    std::fstream file(path_, std::ios::in | std::ios::out | std::ios::binary);
    file.seekp(end_);
    file << text << kLastLine;
    file.flush();
    if (file) end_ += static_cast<long long>(text.size());
    return static_cast<bool>(file);
}

bool KbaseFile::Delete(const std::string& className, const std::string& key) {
    records_.erase({className, key});
    return Write();
}

bool KbaseFile::Write() {
    std::string text = kFirstLine + '\n';
    for (const auto& [name, record] : records_)
        text += RecordText(record);
    std::ofstream file(path_, std::ios::binary | std::ios::trunc);
    file << text << kLastLine;
    file.flush();
    if (file) end_ = static_cast<long long>(text.size());
    return static_cast<bool>(file);
}

}  // namespace bench
