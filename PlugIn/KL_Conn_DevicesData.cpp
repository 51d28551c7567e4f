#include <windows.h>

#include "KL_Conn.h"

#include <cstdlib>
#include <new>

#include "kbase.h"

#include "AirDeviceData.h"
#include "AttributeValues.h"
#include "LocalisedAttributes.h"
#include "Lib/ExceptionReport.h"
#include "Lib/Text.h"
#include "Lib/ModuleIdentity.h"
#include "Util/Download.h"

namespace {

constexpr char kSource[] = "PlugIn/KL_Conn_DevicesData";
constexpr char kDictionaryFile[] = "output.ddk";
constexpr char kManufacturer[] = "Sorvik";
constexpr char kModelClass[] = "KMD";
constexpr size_t kModelIdLimit = 30;

// Attributes of the product record in the dictionary.
enum Attribute : short {
    kShapes = 1110,
    kDeviceFlags = 1150,  // always one zero
    kManufacturerName = 1503,
    kModelParameters = 1507,
    kMarketArea = 1512,
    kModelId = 1525,
    kProductCode = 1562,
    kDimensions = 1650,
    kPressureDropPoint = 1651,
    kPressureDropCurve = 1652,
    kAirflowSoundPoints = 1653,
    kSoundLevelDifferences = 1654,
    kWebLink = 8529
};

template <class Element>
void InsertElement(KB_HANDLE database, KB_RECORD* record, short attribute, const Element& element) {
    InsertElements(database, record, attribute, &element, 1);
}

// Elements of one kind, gathered from the children of one name.
class ElementArray {
 public:
    ElementArray() = default;
    ~ElementArray() { std::free(elements_); }
    ElementArray(const ElementArray&) = delete;
    ElementArray& operator=(const ElementArray&) = delete;

    template <class Element>
    void Gather(const ticpp::Element& device, const char* name, Element (*read)(const ticpp::Element&)) {
        ticpp::Iterator<ticpp::Element> child(name);
        for (child = child.begin(&device); child != child.end(); ++child) {
            const Element element = read(*child);
            if (AppendArrayElement(&elements_, &count_, static_cast<int>(sizeof element), &element) < 0)
                throw std::bad_alloc();
        }
    }
    bool IsEmpty() const { return count_ == 0; }
    void Insert(KB_HANDLE database, KB_RECORD* record, short attribute) const {
        if (!IsEmpty()) InsertElements(database, record, attribute, elements_, static_cast<size_t>(count_));
    }

 private:
    void* elements_ = nullptr;
    int count_ = 0;
};

const ticpp::Element& Required(const ticpp::Element& parent, const char* name, const char* missing) {
    const ticpp::Element* child = parent.FirstChildElement(name, false);
    if (!child) throw missing;
    return *child;
}

std::string RequiredText(const ticpp::Element& parent, const char* name, const char* missing, const char* empty) {
    std::string text = Required(parent, name, missing).GetText(false);
    if (text.empty()) throw empty;
    return text;
}

// Name and value pairs of all children that have a text: "A=900;C=R".
std::string JoinedModelParameters(const ticpp::Element& parameters) {
    std::string joined;
    ticpp::Iterator<ticpp::Element> child;
    for (child = child.begin(&parameters); child != child.end(); ++child) {
        const std::string value = child->GetText(false);
        if (value.empty()) continue;
        if (!joined.empty()) joined += ';';
        joined += child->Value() + "=" + value;
    }
    return joined;
}

// Owner of what one call has from the library: the two database files and the record under construction. Released in
// this order. Both handles begin at 0, which counts as open: an error before the files were opened still gives 0 back.
class ProductDatabase {
 public:
    ProductDatabase() = default;
    ~ProductDatabase() {
        if (record) kbreleaserec(record);
        if (dictionary >= 0) ddk_releasedatabase(dictionary);
        if (database >= 0) kbclosedatabase(database);
    }
    ProductDatabase(const ProductDatabase&) = delete;
    ProductDatabase& operator=(const ProductDatabase&) = delete;

    bool HasModel(const std::string& model) const {
        const KB_RECORD found = kbfindrec(database, kModelClass, model.c_str(), 0);
        kbreleaserec(found);  // null is released like any other
        return found != nullptr;
    }

    KB_HANDLE dictionary = 0;
    KB_HANDLE database = 0;
    KB_RECORD record = nullptr;
};

void FetchDatabaseFile(const std::string& url, const std::string& path, const char* failure) {
    if (DownloadAfresh(url.c_str(), path.c_str()) < 0) throw failure + url;
}

void OpenDatabase(ProductDatabase& product, const std::string& dictionaryPath, const std::string& databasePath) {
    product.dictionary = ddk_opendatabase(dictionaryPath.c_str(), 1, 0);
    if (product.dictionary < 0) throw "Can't open kbase database dictionary " + dictionaryPath;
    product.database = kbopendatabase(dictionaryPath.c_str(), databasePath.c_str(), 0);
    if (product.database < 0) throw "Can't open kbase database " + dictionaryPath + " " + databasePath;
}

void StoreModel(ProductDatabase& product, const ticpp::Element& device) {
    const std::string model = ToUpper(RequiredText(device, "KModelID", "Mandatory parameter 'KModelID' is not defined.",
                                                   "Mandatory parameter 'KModelID' is empty.")
                                          .substr(0, kModelIdLimit));
    InsertText(product.database, &product.record, kModelId, model);
    if (!product.HasModel(model)) throw "Can't find kmodel " + model + " in a database.";
    if (const ticpp::Element* parameters = device.FirstChildElement("KmodelParams", false))
        InsertText(product.database, &product.record, kModelParameters, JoinedModelParameters(*parameters));
}

void StoreTexts(ProductDatabase& product, const ticpp::Element& device) {
    const ticpp::Element& code =
        Required(device, "ProductCodeALL", "Mandatory parameter 'ProductCodeALL' is not defined.");
    InsertText(product.database, &product.record, kProductCode, code.GetText());

    RequiredText(device, "DescriptionGBR", "Mandatory parameter 'DescriptionGBR' is not defined.",
                 "Mandatory parameter 'DescriptionGBR' is empty.");
    if (SetAttributeDescriptionNN(&product.database, &product.record, device) < 0) throw "";

    if (const ticpp::Element* link = device.FirstChildElement("kpdWeblink", false))
        InsertText(product.database, &product.record, kWebLink, link->GetText());
    if (SetAttributeWebLinkNN(&product.database, &product.record, device) < 0) throw "";

    if (const ticpp::Element* market = device.FirstChildElement("MarketArea", false))
        InsertText(product.database, &product.record, kMarketArea, market->GetText());
    StoreModel(product, device);
}

void StorePressureDrop(ProductDatabase& product, const ticpp::Element& device, int fnc) {
    if (fnc == 10 || fnc == 110) {
        const ticpp::Element& curve = Required(device, "DpCurve", "Parameter 'DpCurve' is not defined.");
        InsertElement(product.database, &product.record, kPressureDropPoint, ReadPressureDropPoint(curve));
    } else if (fnc == 20 || fnc == 120) {
        ElementArray curve;
        curve.Gather(device, "aDpCurves", ReadPressureDropCurveElement);
        if (curve.IsEmpty()) throw "Parameter 'aDpCurves' is not defined";
        curve.Insert(product.database, &product.record, kPressureDropCurve);
    }
}

void StoreFigures(ProductDatabase& product, const ticpp::Element& device) {
    const DimensionRecord dimensions =
        ReadDimensions(Required(device, "AirDeviceDimData", "Parameter 'AirDeviceDimData' is not defined."));
    InsertElement(product.database, &product.record, kDimensions, dimensions);
    StorePressureDrop(product, device, dimensions.fnc);

    ElementArray points;
    points.Gather(device, "QvDpLwPoints", ReadAirflowSoundPoint);
    points.Insert(product.database, &product.record, kAirflowSoundPoints);

    ElementArray differences;
    differences.Gather(device, "dLw", ReadSoundLevelDifference);
    differences.Insert(product.database, &product.record, kSoundLevelDifferences);

    ElementArray shapes;
    shapes.Gather(device, "Shape", ReadShape);
    if (shapes.IsEmpty()) throw "Parameter 'Shape' is not defined.";
    shapes.Insert(product.database, &product.record, kShapes);
}

void StoreDevice(ProductDatabase& product, const ticpp::Element& device, const std::string& classSymbol,
                 std::string& productKey) {
    KB_CLASSID classId = {};
    if (ddk_classsymboltoID(product.dictionary, classSymbol.c_str(), &classId) == 0) throw "Can't get device class id.";
    productKey = Required(device, "ID", "Parameter 'ID' is not defined.").GetText();

    kbdeleterec(product.database, &classId, productKey.c_str());
    // The record of a previous device is not released, the last one alone is.
    product.record = kbcreaterec(product.database, &classId, productKey.c_str());
    if (!product.record) throw "Can't create kbase record for device.";
    InsertElement(product.database, &product.record, kDeviceFlags, int16_t{0});
    InsertText(product.database, &product.record, kManufacturerName, kManufacturer);
    StoreTexts(product, device);
    StoreFigures(product, device);
    // The message is spelt as users know it.
    if (kbsaverec(product.database, product.record) < 0) throw "Can'save device database record.";
}

}  // namespace

int KlConn::AddDeviceFromXMLToDatabase(const std::string& commandName) {
    if (!currentDevice_) return -1;
    const std::string classSymbol = commandName == kSilencerCommand ? kSilencerClass : "";
    std::string productKey;
    const int result = StoreDevices(classSymbol, productKey);
    WriteKeys(classSymbol, productKey);
    return result;
}

// `productKey`: that of the device reached last, also after a failure.
int KlConn::StoreDevices(const std::string& classSymbol, std::string& productKey) {
    ProductDatabase product;
    try {
        ticpp::Element* root = Root();
        const std::string dictionaryPath = FilePath(kDictionaryFile);
        const std::string databasePath = FilePath(kDatabaseFile);
        FetchDatabaseFile(root->FirstChildElement("DdkFileUrl")->GetText(), dictionaryPath,
                          "Can't download Klimora database dictionary ");
        FetchDatabaseFile(root->FirstChildElement("KpdFileUrl")->GetText(), databasePath,
                          "Can't download Klimora database ");
        OpenDatabase(product, dictionaryPath, databasePath);
        ticpp::Iterator<ticpp::Element> device("device");
        for (device = device.begin(root); device != device.end(); ++device) {
            StoreDevice(product, *device, classSymbol, productKey);
            currentDevice_ = device.Get();
        }
        return 0;
    } catch (...) {
        ReportException("AddDeviceToKlimoraProject", kSource, 418, "KlConn::AddDeviceFromXMLToDatabase");
        return -1;
    }
}

void KlConn::WriteKeys(const std::string& classSymbol, const std::string& productKey) {
    currentDevice_->SetAttribute("KPDClassName", classSymbol);
    currentDevice_->SetAttribute("ProductFamilyKey", productKey);
    currentDevice_->SetAttribute("ProductKey", productKey);
    const std::string userCode = currentDevice_->HasAttribute("UserCode") ? currentDevice_->GetAttribute("UserCode")
                                                                          : ProposeUserCode(classSymbol, "");
    currentDevice_->SetAttribute("UserCode", userCode);
}
