#include "Commands.h"

#include <algorithm>
#include <iterator>

#include "BenchControl.h"
#include "KbaseFile.h"
#include "Parts.h"
#include "Refusal.h"
#include "Texts.h"
#include "kbase.h"

namespace bench::klimora {
namespace {

constexpr size_t kLongestUserCode = 10;

constexpr const char* kProductClasses[] = {"hZoneValveType", "hStopValveType", "dSupplyType", "dExtractType",
                                           "dOutdoorType",   "dExhaustType",   kSilencerClass};

// Attribute numbers of the dictionary.
constexpr int kModelParameters = 1507;
constexpr int kProductCode = 1562;

// The record database uses the system's code page.
std::string InCodePage(const std::string& utf8) {
    return Ansi(FromUtf8(utf8));
}

std::string DictionaryBeside(const std::string& databaseFile) {
    return databaseFile.substr(0, databaseFile.rfind('.')) + ".ddk";
}

class ProductFile {
 public:
    // `name` is UTF-8, as in the command.
    explicit ProductFile(const std::string& name) : name_(name), path_(InCodePage(name)) {
        handle_ = kbopendatabase(DictionaryBeside(path_).c_str(), path_.c_str(), 0);
        if (handle_ < 0) throw Refusal(kProductFile, "Cannot read the product database " + path_ + ".");
    }
    ~ProductFile() { kbclosedatabase(handle_); }
    ProductFile(const ProductFile&) = delete;
    ProductFile& operator=(const ProductFile&) = delete;

    void Require(const std::string& className, const std::string& key) const {
        const KB_RECORD record = kbfindrec(handle_, InCodePage(className).c_str(), InCodePage(key).c_str(), 0);
        if (!record) throw Refusal(kUnknownProduct, "Product " + key + " was not found in " + name_);
        kbreleaserec(record);
    }

    // The library's declared functions cannot read attributes, so this reads the file. Returns an empty record if the
    // file does not have it.
    KbaseRecord Record(const std::string& className, const std::string& key) const {
        KbaseFile file;
        const KbaseRecord* record = file.Read(path_) ? file.Find(InCodePage(className), InCodePage(key)) : nullptr;
        return record ? *record : KbaseRecord();
    }

 private:
    std::string name_;
    std::string path_;
    KB_HANDLE handle_;
};

// Returns "L" of the model parameters, in mm; 0 when it is missing.
double LengthOf(const KbaseRecord& record) {
    double length = 0;
    for (const std::string& pair : Split(record.BytesOf(kModelParameters), ';'))
        if (pair.compare(0, 2, "L=") == 0 && !ReadNumber(pair.substr(2), length)) length = 0;
    return length;
}

// Assigns silencers drawn with a replaced user code to the new product. They keep their place and length.
void LetDrawnSilencersFollow(ProjectTree& project, const TiXmlElement* product) {
    for (TiXmlElement* part : project.AllParts()) {
        if (ValueAt(part, "Type/Define") != kSilencerDefine ||
            ValueAt(part, "UserCode") != ValueAt(product, "UserCode"))
            continue;
        for (const char* name : {"ProductCode", "ProductFamilyKey"})
            SetValueAt(part, name, ValueAt(product, name));
    }
}

void CheckWords(const TiXmlElement* command) {
    if (ValueAt(command, "Function/Name") != "Add")
        throw Refusal(kBadCommand, "ManageProductData knows no function " + ValueAt(command, "Function/Name") + ".");
    const std::string className = ValueAt(command, "KPDClass/Name");
    if (std::find(std::begin(kProductClasses), std::end(kProductClasses), className) == std::end(kProductClasses))
        throw Refusal(kBadCommand, "There is no product class " + className + ".");
    const std::string userCode = ValueAt(command, "Usercode");
    if (FromUtf8(userCode).size() > kLongestUserCode)
        throw Refusal(kBadValue, "User code " + userCode + " is longer than 10 characters.");
}

}  // namespace

std::string ManageProductData(Server& server, const std::string& command) {
    const std::unique_ptr<TiXmlDocument> document = ParseCommand(command, "ManageProductData");
    const TiXmlElement* root = document->RootElement();
    CheckWords(root);
    ProjectTree& project = server.project;
    project.Project();
    const std::string className = ValueAt(root, "KPDClass/Name");
    const std::string userCode = ValueAt(root, "Usercode");
    const std::string familyKey = ValueAt(root, "Productfamilykey");
    const std::string sentKey = ValueAt(root, "Productkey");
    const std::string productKey = sentKey.empty() ? familyKey : sentKey;

    const UnrecordedScope quiet;
    const ProductFile file(ValueAt(root, "KPD/Filename"));
    file.Require(className, familyKey);
    file.Require(className, productKey);
    const KbaseRecord record = file.Record(className, productKey);
    const std::string code = record.BytesOf(kProductCode);

    TiXmlElement* product = project.Product(className, userCode);
    if (product)
        product->Clear();
    else
        product = project.ProductClass(className, true)->InsertEndChild(TiXmlElement("Part"))->ToElement();
    SetValueAt(product, "UserCode", userCode);
    SetValueAt(product, "ProductCode", code.empty() ? familyKey : code);
    SetValueAt(product, "ProductKey", productKey);
    SetValueAt(product, "ProductFamilyKey", familyKey);
    if (LengthOf(record) > 0) SetRealAt(product, "Length", LengthOf(record));
    if (className == kSilencerClass) LetDrawnSilencersFollow(project, product);
    return {};
}

}  // namespace bench::klimora
