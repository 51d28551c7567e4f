#include "BinaryVariables.h"

#include <algorithm>

#include "BenchControl.h"
#include "BenchTexts.h"
#include "Refusal.h"

namespace bench::klimora {
namespace {

std::string Name(long variable) {
    return "Binary variable " + std::to_string(variable);
}

[[noreturn]] void RefuseAndReport(const std::string& sentence) {
    ReportViolation(sentence);
    throw Refusal(kBinaryVariable, sentence);
}

std::string Bytes(long variable, const std::string& text) {
    if (text.empty() || text.size() % 2 != 0)
        RefuseAndReport(Name(variable) + " was sent an odd number of hexadecimal digits, or none.");
    if (text.find_first_not_of("0123456789ABCDEF") != std::string::npos)
        RefuseAndReport(Name(variable) + " was sent data that are not upper-case hexadecimal digits.");
    std::string bytes;
    FromHex(text, bytes);
    return bytes;
}

}  // namespace

void BinaryVariables::SetSize(long variable, long size) {
    if (size < 1)
        throw Refusal(kBinaryVariable, Name(variable) + " cannot have the size " + std::to_string(size) + ".");
    if (variables_.count(variable) == 0) TrackAcquire("binary variable", std::to_string(variable));
    const size_t bytes = static_cast<size_t>(size);
    variables_[variable] = {std::string(bytes, '\0'), std::vector<bool>(bytes, false)};
}

void BinaryVariables::SetData(long variable, long offset, const std::string& hexData) {
    const auto found = variables_.find(variable);
    if (found == variables_.end()) RefuseAndReport(Name(variable) + " was sent data before its size was set.");
    const std::string bytes = Bytes(variable, hexData);
    Variable& target = found->second;
    if (offset < 0 || static_cast<size_t>(offset) + bytes.size() > target.bytes.size())
        RefuseAndReport(Name(variable) + " was sent data beyond its size of " + std::to_string(target.bytes.size()) +
                        ".");
    const size_t start = static_cast<size_t>(offset);
    target.bytes.replace(start, bytes.size(), bytes);
    std::fill_n(target.filled.begin() + offset, bytes.size(), true);
}

void BinaryVariables::Free(long variable) {
    if (variables_.erase(variable) == 0) throw Refusal(kBinaryVariable, Name(variable) + " was not set.");
    TrackRelease("binary variable", std::to_string(variable));
}

const std::string& BinaryVariables::Take(long variable) const {
    const auto found = variables_.find(variable);
    if (found == variables_.end()) throw Refusal(kBinaryVariable, Name(variable) + " was not set.");
    const std::vector<bool>& filled = found->second.filled;
    if (std::find(filled.begin(), filled.end(), false) != filled.end())
        RefuseAndReport(Name(variable) + " was used before all of its bytes were sent.");
    return found->second.bytes;
}

std::string BinaryVariables::Contents(long variable) const {
    const auto found = variables_.find(variable);
    return found == variables_.end() ? std::string() : found->second.bytes;
}

}  // namespace bench::klimora
