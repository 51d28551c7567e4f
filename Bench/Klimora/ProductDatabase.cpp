#include "ProductDatabase.h"

#include <windows.h>

#include <cstring>
#include <memory>
#include <type_traits>
#include <vector>

#include "BenchControl.h"
#include "KbaseFile.h"
#include "Refusal.h"
#include "Texts.h"
#include "kbase.h"

namespace bench::klimora {
namespace {

// Attributes of the dictionary.
constexpr int kModelParameters = 1507;
constexpr int kProductCode = 1562;

struct ReleaseModule {
    void operator()(HMODULE module) const { FreeLibrary(module); }
};
using ModuleOwner = std::unique_ptr<std::remove_pointer_t<HMODULE>, ReleaseModule>;

template <class Function>
Function* Find(HMODULE module, const char* name) {
    const FARPROC address = GetProcAddress(module, name);
    if (!address) throw Refusal(kProductFile, std::string("Kbase640.dll has no function ") + name + ".");
    Function* function = nullptr;
    static_assert(sizeof function == sizeof address);
    std::memcpy(&function, &address, sizeof function);
    return function;
}

// The library as the server loads it: on demand, and let go of after each question.
class Library {
 public:
    Library() : module_(LoadLibraryA("Kbase640.dll")) {
        if (!module_) throw Refusal(kProductFile, "Kbase640.dll cannot be loaded.");
        open = Find<decltype(kbopendatabase)>(module_.get(), "kbopendatabase");
        close = Find<decltype(kbclosedatabase)>(module_.get(), "kbclosedatabase");
        find = Find<decltype(kbfindrec)>(module_.get(), "kbfindrec");
        release = Find<decltype(kbreleaserec)>(module_.get(), "kbreleaserec");
    }

 private:
    ModuleOwner module_;

 public:
    decltype(kbopendatabase)* open = nullptr;
    decltype(kbclosedatabase)* close = nullptr;
    decltype(kbfindrec)* find = nullptr;
    decltype(kbreleaserec)* release = nullptr;
};

class Database {
 public:
    Database(const Library& library, const std::string& dictionary, const std::string& database)
        : library_(library), handle_(library.open(dictionary.c_str(), database.c_str(), 0)) {
        if (handle_ < 0) throw Refusal(kProductFile, "Cannot read the product database " + database + ".");
    }
    ~Database() { library_.close(handle_); }
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    bool Has(const std::string& className, const std::string& key) const {
        const KB_RECORD record = library_.find(handle_, className.c_str(), key.c_str(), 0);
        if (record) library_.release(record);
        return record != nullptr;
    }

 private:
    const Library& library_;
    KB_HANDLE handle_;
};

}  // namespace

std::string DictionaryBeside(const std::string& databaseFile) {
    const size_t folder = databaseFile.find_last_of("/\\");
    const size_t ending = databaseFile.rfind('.');
    const bool hasEnding = ending != std::string::npos && (folder == std::string::npos || ending > folder);
    return databaseFile.substr(0, hasEnding ? ending : std::string::npos) + ".ddk";
}

bool HasProduct(const std::string& dictionary, const std::string& database, const std::string& className,
                const std::string& key) {
    const Quiet quiet;
    const Library library;
    return Database(library, dictionary, database).Has(className, key);
}

ProductFacts FactsOfProduct(const std::string& database, const std::string& className, const std::string& key) {
    std::vector<KbaseRecord> records;
    std::string error;
    ProductFacts facts;
    if (!ReadKbaseDatabase(database, records, error)) return facts;
    const KbaseRecord* record = FindKbaseRecord(records, className, key);
    if (!record) return facts;
    facts.code = BytesOf(*record, kProductCode);
    for (const std::string& pair : Split(BytesOf(*record, kModelParameters), ";"))
        if (pair.compare(0, 2, "L=") == 0 && !ReadNumber(pair.substr(2), facts.length)) facts.length = 0;
    return facts;
}

}  // namespace bench::klimora
