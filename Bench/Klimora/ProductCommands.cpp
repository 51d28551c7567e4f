#include "ProductCommands.h"

#include <windows.h>

#include <algorithm>
#include <fstream>

#include "CommandXml.h"
#include "Geometry.h"
#include "ProductDatabase.h"
#include "Refusal.h"
#include "Texts.h"

namespace bench::klimora {
namespace {

constexpr size_t kLongestUserCode = 10;

constexpr const char* kProductClasses[] = {"hZoneValveType", "hStopValveType", "dSupplyType",  "dExtractType",
                                           "dOutdoorType",   "dExhaustType",   "dSilencerType"};

const std::vector<Field> kAddFields = {
    {"Function/Name", Kind::kWord},    {"KPD/Filename", Kind::kWord, true}, {"KPD/binvar", Kind::kInteger, true},
    {"KPDClass/Name", Kind::kWord},    {"Usercode", Kind::kWord},           {"Productfamilykey", Kind::kWord},
    {"Productkey", Kind::kWord, true},
};

// Product data from memory become a file, which is what the record database reads.
class TemporaryFile {
 public:
    explicit TemporaryFile(const std::string& bytes) {
        char folder[MAX_PATH + 1] = {};
        char name[MAX_PATH + 1] = {};
        GetTempPathA(sizeof folder, folder);
        if (GetTempFileNameA(folder, "kpd", 0, name) == 0)
            throw Refusal(kProductFile, "Cannot write a temporary product database.");
        name_ = name;
        std::ofstream(name_, std::ios::binary) << bytes;
    }
    ~TemporaryFile() { DeleteFileA(name_.c_str()); }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    const std::string& Name() const { return name_; }

 private:
    std::string name_;
};

// The record database takes texts in the system's code page.
std::string InCodePage(const std::string& utf8) {
    return Ansi(FromUtf8(utf8));
}

ProductFacts CheckKey(const std::string& dictionary, const std::string& database, const std::string& shown,
                      const TiXmlElement* command) {
    const std::string className = ValueAt(command, "KPDClass/Name");
    std::vector<std::string> keys = {ValueAt(command, "Productfamilykey")};
    const std::string productKey = ValueAt(command, "Productkey");
    if (!productKey.empty()) keys.push_back(productKey);
    for (const std::string& key : keys)
        if (!HasProduct(dictionary, database, InCodePage(className), InCodePage(key)))
            throw Refusal(kUnknownProduct, "Product " + key + " was not found in " + shown);
    return FactsOfProduct(database, InCodePage(className), InCodePage(keys.back()));
}

ProductFacts CheckProductData(Server& server, const TiXmlElement* command) {
    const std::string file = ValueAt(command, "KPD/Filename");
    const std::string variable = ValueAt(command, "KPD/binvar");
    if (file.empty() == variable.empty())
        throw Refusal(kBadCommand, "ManageProductData: product data come from one file or one binary variable.");
    if (!file.empty()) {
        const std::string dictionary = DictionaryBeside(InCodePage(file));
        const ProductFacts facts = CheckKey(dictionary, InCodePage(file), file, command);
        server.dictionary = dictionary;
        return facts;
    }
    long number = 0;
    ReadNumber(variable, number);
    const TemporaryFile data(server.variables.Take(number));
    if (server.dictionary.empty())
        throw Refusal(kProductFile, "Product data from a binary variable need a dictionary that was read before.");
    return CheckKey(server.dictionary, data.Name(), "binary variable " + variable, command);
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

// Parts in the drawing follow the product of their user code.
void UpdateParts(const ProjectTree& project, const std::string& userCode, const std::string& familyKey) {
    for (TiXmlElement* part : project.AllParts())
        if (ValueAt(part, "UserCode") == userCode) SetValueAt(part, "ProductFamilyKey", familyKey);
}

void PutIntoList(const ProjectTree& project, const TiXmlElement* command, const ProductFacts& facts,
                 const std::vector<TiXmlElement*>& extra) {
    const std::string className = ValueAt(command, "KPDClass/Name");
    const std::string userCode = ValueAt(command, "Usercode");
    const std::string familyKey = ValueAt(command, "Productfamilykey");
    const std::string productKey = ValueAt(command, "Productkey");
    TiXmlElement* product = project.Product(className, userCode);
    if (product) {
        product->Clear();
    } else {
        product = new TiXmlElement("Part");
        project.ProductClass(className, true)->LinkEndChild(product);
    }
    SetValueAt(product, "UserCode", userCode);
    SetValueAt(product, "ProductCode", facts.code.empty() ? familyKey : facts.code);
    SetValueAt(product, "ProductKey", productKey.empty() ? familyKey : productKey);
    SetValueAt(product, "ProductFamilyKey", familyKey);
    if (facts.length > 0) SetRealAt(product, "Length", facts.length);
    for (const TiXmlElement* element : extra)
        product->LinkEndChild(element->Clone());
    UpdateParts(project, userCode, familyKey);
}

bool IsCommandElement(const std::string& name) {
    for (const Field& field : kAddFields)
        if (SameName(Split(field.path, "/").front(), name)) return true;
    return false;
}

// What follows the product key is the client's own and is kept with the product; the command's elements may not return.
std::vector<TiXmlElement*> ExtraElements(TiXmlElement* command, size_t fieldsFound) {
    std::vector<TiXmlElement*> extra;
    size_t leaves = 0;
    for (TiXmlElement* child = command->FirstChildElement(); child; child = child->NextSiblingElement()) {
        const bool isExtra = leaves >= fieldsFound;
        leaves += child->FirstChildElement() ? Leaves(child).size() : 1;
        if (!isExtra) continue;
        if (IsCommandElement(child->ValueStr()))
            throw Refusal(kBadCommand, "ManageProductData: " + child->ValueStr() + " is out of order.");
        extra.push_back(child);
    }
    return extra;
}

}  // namespace

void ManageProductData(Server& server, const std::string& command) {
    const std::unique_ptr<TiXmlDocument> document = ParseCommand(command, "ManageProductData");
    TiXmlElement* root = document->RootElement();
    std::string reason;
    const std::vector<Leaf> leaves = Leaves(root);
    const size_t found = MatchFields(leaves, kAddFields, reason);
    const bool complete = found >= 4 && found <= leaves.size() &&
                          (leaves[found - 1].path == "Productfamilykey" || leaves[found - 1].path == "Productkey");
    if (!complete) throw Refusal(kBadCommand, "ManageProductData: " + reason + ".");
    const std::vector<TiXmlElement*> extra = ExtraElements(root, found);
    CheckWords(root);
    server.project.Project();
    const ProductFacts facts = CheckProductData(server, root);
    PutIntoList(server.project, root, facts, extra);
}

}  // namespace bench::klimora
