// The dictionary functions of Kbase640.dll and its warning switch. They imitate the rows "dictionary" of the ledger
// docs/contracts/kbase.md. A planned failure gives the function's own failure value; a release cannot fail.
#include "BenchControl.h"
#include "KbaseHandles.h"

using bench::Shown;

KB_HANDLE ddk_opendatabase(const char* dictionaryPath, int mode, int flags) {
    bench::Call call("ddk_opendatabase",
                     Shown(dictionaryPath) + ' ' + std::to_string(mode) + ' ' + std::to_string(flags));
    KB_HANDLE handle = static_cast<KB_HANDLE>(call.failureCode(-1));
    if (!call.fails() && bench::TextGiven("ddk_opendatabase", "a dictionary path", dictionaryPath)) {
        if (mode != 1 || flags != 0)
            bench::Accuse("ddk_opendatabase was called with mode " + std::to_string(mode) + " and flags " +
                          std::to_string(flags) + ", not with 1 and 0.");
        bench::KbaseDictionary dictionary;
        std::string error;
        if (dictionary.Read(dictionaryPath, error)) handle = bench::AddDictionary(dictionary);
    }
    call.result(handle);
    return handle;
}

int ddk_classsymboltoID(KB_HANDLE dictionary, const char* classSymbol, KB_CLASSID* classId) {
    bench::Call call("ddk_classsymboltoID", std::to_string(dictionary) + ' ' + Shown(classSymbol));
    int known = static_cast<int>(call.failureCode(0));
    if (!call.fails()) {
        const bench::KbaseDictionary* opened = bench::FindDictionary("ddk_classsymboltoID", dictionary);
        if (!classSymbol || !classId)
            bench::Accuse("ddk_classsymboltoID was called without a class symbol or a place for the class id.");
        else if (const bench::KbaseClassId* id = opened ? opened->FindClass(classSymbol) : nullptr) {
            classId->value[0] = (*id)[0];
            classId->value[1] = (*id)[1];
            known = 1;
        }
    }
    call.result(known);
    return known;
}

void ddk_releasedatabase(KB_HANDLE dictionary) {
    bench::Call call("ddk_releasedatabase", std::to_string(dictionary));
    bench::RemoveDictionary(dictionary);
}

void kbsetwarningmode(int mode) {
    bench::Call call("kbsetwarningmode", std::to_string(mode));
    if (mode != 0 && mode != 1)
        bench::Accuse("kbsetwarningmode was called with " + std::to_string(mode) + ", which is neither on nor off.");
}
