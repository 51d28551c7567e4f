// The product record of a run, for people: put together from the calls that the record library received, and decoded
// through the dictionary alone.
#pragma once

#include <string>
#include <vector>

#include "KbaseDictionary.h"
#include "KbaseFile.h"

namespace bench {

// The record that was saved last, from a journal; false when none was saved.
bool SavedRecord(const std::vector<std::string>& journal, const KbaseDictionary& dictionary, KbaseRecord& record);

// One line a fact: number, name and value of every attribute.
std::string RecordReport(const KbaseRecord& record);

}  // namespace bench
