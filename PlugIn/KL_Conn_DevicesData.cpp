#include "KL_Conn.h"

#include <cstdlib>
#include <new>

#include "kbase.h"

#include "AirDeviceData.h"
#include "AttributeValues.h"
#include "Lib/ExceptionReport.h"
#include "Lib/ModuleIdentity.h"
#include "Lib/Text.h"
#include "LocalisedAttributes.h"
#include "Util/Download.h"

namespace {

// The message names the project's operation; users know it so.
constexpr ReportSite kBuilding = {"AddDeviceToKlimoraProject", "PlugIn/KL_Conn_DevicesData", 418,
                                  "KlConn::AddDeviceFromXMLToDatabase"};
constexpr char kDictionaryFile[] = "output.ddk";
constexpr char kManufacturer[] = "Sorvik";
constexpr char kModelClass[] = "KMD";
constexpr size_t kMaxModelIdLength = 30;

// Attributes of the product record, as the dictionary numbers them.
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

// Values of `Fnc`: the product's pressure drop is a point or a curve. What the second value of each means is the
// manufacturer's; the record is the same.
enum Fnc : int16_t { kPoint = 10, kPointAlternative = 110, kCurve = 20, kCurveAlternative = 120 };

// Elements read from all children of one name.
class ElementArray {
 public:
    ElementArray() = default;
    ~ElementArray() { std::free(elements_); }
    ElementArray(const ElementArray&) = delete;
    ElementArray& operator=(const ElementArray&) = delete;

    template <class Element>
    void ReadAll(const ticpp::Element& device, const char* name, Element (*read)(const ticpp::Element&)) {
        ticpp::Iterator<ticpp::Element> child(name);
        for (child = child.begin(&device); child != child.end(); ++child) {
            const Element element = read(*child);
            if (AppendArrayElement(&elements_, &count_, static_cast<int>(sizeof element), &element) < 0)
                throw std::bad_alloc();
        }
    }
    const void* data() const { return elements_; }
    size_t size() const { return static_cast<size_t>(count_); }

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

// Returns name and value of all children that have a text: "A=900;C=R".
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

// The product database of one call: the dictionary, the database and the record under construction. The destructor
// releases record, dictionary and database in this order. Both handles start at 0, which counts as open: after an error
// before the files are opened the library is called with handle 0.
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

    void Open(const std::string& dictionaryPath, const std::string& databasePath) {
        dictionary = ddk_opendatabase(dictionaryPath.c_str(), 1, 0);
        if (dictionary < 0) throw "Can't open kbase database dictionary " + dictionaryPath;
        database = kbopendatabase(dictionaryPath.c_str(), databasePath.c_str(), 0);
        if (database < 0) throw "Can't open kbase database " + dictionaryPath + " " + databasePath;
    }

    template <class Element>
    void InsertElement(short attribute, const Element& element) {
        InsertElements(database, &record, attribute, &element, 1);
    }
    // Skips an empty array.
    void InsertArray(short attribute, const ElementArray& elements) {
        if (elements.size() > 0) InsertElements(database, &record, attribute, elements.data(), elements.size());
    }
    void InsertText(short attribute, const std::string& text) { ::InsertText(database, &record, attribute, text); }

    bool HasModel(const std::string& model) const {
        const KB_RECORD found = kbfindrec(database, kModelClass, model.c_str(), 0);
        kbreleaserec(found);  // also when null
        return found != nullptr;
    }

    KB_HANDLE dictionary = 0;
    KB_HANDLE database = 0;
    KB_RECORD record = nullptr;
};

void FetchDatabaseFile(const std::string& url, const std::string& path, const char* failure) {
    if (DeleteAndDownload(url.c_str(), path.c_str()) < 0) throw failure + url;
}

void StoreModel(ProductDatabase& product, const ticpp::Element& device) {
    const std::string model = ToUpper(RequiredText(device, "KModelID", "Mandatory parameter 'KModelID' is not defined.",
                                                   "Mandatory parameter 'KModelID' is empty.")
                                          .substr(0, kMaxModelIdLength));
    product.InsertText(kModelId, model);
    if (!product.HasModel(model)) throw "Can't find kmodel " + model + " in a database.";
    if (const ticpp::Element* parameters = device.FirstChildElement("KmodelParams", false))
        product.InsertText(kModelParameters, JoinedModelParameters(*parameters));
}

void StoreTexts(ProductDatabase& product, const ticpp::Element& device) {
    const ticpp::Element& code =
        Required(device, "ProductCodeALL", "Mandatory parameter 'ProductCodeALL' is not defined.");
    product.InsertText(kProductCode, code.GetText());

    RequiredText(device, "DescriptionGBR", "Mandatory parameter 'DescriptionGBR' is not defined.",
                 "Mandatory parameter 'DescriptionGBR' is empty.");
    if (SetAttributeDescriptionNN(&product.database, &product.record, device) < 0) throw kNoDetails;

    if (const ticpp::Element* link = device.FirstChildElement("kpdWeblink", false))
        product.InsertText(kWebLink, link->GetText());
    if (SetAttributeWebLinkNN(&product.database, &product.record, device) < 0) throw kNoDetails;

    if (const ticpp::Element* market = device.FirstChildElement("MarketArea", false))
        product.InsertText(kMarketArea, market->GetText());
    StoreModel(product, device);
}

void StorePressureDrop(ProductDatabase& product, const ticpp::Element& device, int fnc) {
    if (fnc == kPoint || fnc == kPointAlternative) {
        const ticpp::Element& curve = Required(device, "DpCurve", "Parameter 'DpCurve' is not defined.");
        product.InsertElement(kPressureDropPoint, ReadPressureDropPoint(curve));
    } else if (fnc == kCurve || fnc == kCurveAlternative) {
        ElementArray curve;
        curve.ReadAll(device, "aDpCurves", ReadPressureDropCurveElement);
        if (curve.size() == 0) throw "Parameter 'aDpCurves' is not defined";
        product.InsertArray(kPressureDropCurve, curve);
    }
}

void StoreFigures(ProductDatabase& product, const ticpp::Element& device) {
    const DimensionRecord dimensions =
        ReadDimensions(Required(device, "AirDeviceDimData", "Parameter 'AirDeviceDimData' is not defined."));
    product.InsertElement(kDimensions, dimensions);
    StorePressureDrop(product, device, dimensions.fnc);

    ElementArray points;
    points.ReadAll(device, "QvDpLwPoints", ReadAirflowSoundPoint);
    product.InsertArray(kAirflowSoundPoints, points);

    ElementArray differences;
    differences.ReadAll(device, "dLw", ReadSoundLevelDifference);
    product.InsertArray(kSoundLevelDifferences, differences);

    ElementArray shapes;
    shapes.ReadAll(device, "Shape", ReadShape);
    if (shapes.size() == 0) throw "Parameter 'Shape' is not defined.";
    product.InsertArray(kShapes, shapes);
}

void StoreDevice(ProductDatabase& product, const ticpp::Element& device, const std::string& classSymbol,
                 std::string& productKey) {
    KB_CLASSID classId = {};
    if (ddk_classsymboltoID(product.dictionary, classSymbol.c_str(), &classId) == 0) throw "Can't get device class id.";
    productKey = Required(device, "ID", "Parameter 'ID' is not defined.").GetText();

    kbdeleterec(product.database, &classId, productKey.c_str());
    // Only the last device's record is released.
    product.record = kbcreaterec(product.database, &classId, productKey.c_str());
    if (!product.record) throw "Can't create kbase record for device.";
    product.InsertElement(kDeviceFlags, int16_t{0});
    product.InsertText(kManufacturerName, kManufacturer);
    StoreTexts(product, device);
    StoreFigures(product, device);
    // The misspelling is part of the message that users quote.
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

// `productKey` receives the key of the last device that was started, also after a failure.
int KlConn::StoreDevices(const std::string& classSymbol, std::string& productKey) {
    ProductDatabase product;
    return ReportOnThrow(kBuilding, -1, [&] {
        ticpp::Element* root = Root();
        const std::string dictionaryPath = FilePath(kDictionaryFile);
        const std::string databasePath = FilePath(kDatabaseFile);
        FetchDatabaseFile(root->FirstChildElement("DdkFileUrl")->GetText(), dictionaryPath,
                          "Can't download Klimora database dictionary ");
        FetchDatabaseFile(root->FirstChildElement("KpdFileUrl")->GetText(), databasePath,
                          "Can't download Klimora database ");
        product.Open(dictionaryPath, databasePath);
        ticpp::Iterator<ticpp::Element> device("device");
        for (device = device.begin(root); device != device.end(); ++device) {
            StoreDevice(product, *device, classSymbol, productKey);
            currentDevice_ = device.Get();
        }
        return 0;
    });
}

void KlConn::WriteKeys(const std::string& classSymbol, const std::string& productKey) {
    currentDevice_->SetAttribute("KPDClassName", classSymbol);
    currentDevice_->SetAttribute("ProductFamilyKey", productKey);
    currentDevice_->SetAttribute("ProductKey", productKey);
    const std::string userCode = currentDevice_->HasAttribute("UserCode") ? currentDevice_->GetAttribute("UserCode")
                                                                          : ProposeUserCode(classSymbol, "");
    currentDevice_->SetAttribute("UserCode", userCode);
}
