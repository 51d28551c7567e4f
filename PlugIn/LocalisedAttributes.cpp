#include "LocalisedAttributes.h"

#include <cstddef>
#include <cstdint>
#include <string>

#include "AttributeValues.h"
#include "Lib/ExceptionReport.h"

namespace {

// Users quote it to support, so it stays although it is not this file's name.
constexpr char kSource[] = "PlugIn/KL_Conn_DevicesData";

struct LocalisedAttribute {
    int32_t number;
    char element[32];  // NUL-terminated
};

// Numbers and names are the dictionary's own, including gaps and odd spellings; attributes are stored in this order.
constexpr LocalisedAttribute kDescriptionAttributes[] = {
    {9550, "DescriptionFIN"}, {9551, "DescriptionSWE"}, {9552, "DescriptionGBR"}, {9553, "DescriptionDEU"},
    {9554, "DescriptionNOR"}, {9555, "DescriptionFRA"}, {9556, "DescriptionESP"}, {9557, "DescriptionITA"},
    {9558, "DescriptionPOL"}, {9559, "DescriptionDNK"}, {9560, "DescriptionCZE"}, {9561, "DescriptionPRT"},
    {9562, "DescriptionHUN"}, {9563, "DescriptionNLD"}, {9564, "DescriptionISL"}, {9565, "DescriptionEST"},
    {9566, "DescriptionLTU"}, {9567, "DescriptionLVA"}, {9568, "DescriptionRUS"}, {9569, "Description_FL"},
    {9570, "DescriptionSVK"}, {9571, "DescriptionBGR"}, {9572, "DescriptionROU"}, {9573, "DescriptionBIH"},
    {9574, "DescriptionHRV"}, {9590, "DescriptionSVN"}, {9591, "Description_AR"}, {9592, "DescriptionJPN"},
    {9593, "DescriptionCHN"}, {9594, "DescriptionTUR"}, {9595, "DescriptionUS"},
};

constexpr LocalisedAttribute kWebLinkAttributes[] = {
    {8500, "kpdWeblinkFIN"}, {8501, "kpdWeblinkSWE"}, {8502, "kpdWeblinkDEU"}, {8503, "kpdWeblinkGBR"},
    {8504, "kpdWeblinkFRA"}, {8505, "kpdWeblinkNOR"}, {8506, "kpdWeblinkESP"}, {8507, "kpdWeblinkITA"},
    {8508, "kpdWeblinkPOL"}, {8509, "kpdWeblinkDNK"}, {8510, "kpdWeblinkPRT"}, {8511, "kpdWeblinkCZE"},
    {8512, "kpdWeblinkHUN"}, {8513, "kpdWeblinkNLD"}, {8514, "kpdWeblinkISL"}, {8515, "kpdWeblinkEST"},
    {8516, "kpdWeblinkLTU"}, {8517, "kpdWeblinkLVA"}, {8518, "kpdWeblinkRUS"}, {8520, "kpdWeblinkSVK"},
    {8521, "kpdWeblinkBGR"}, {8522, "kpdWeblinkROU"}, {8523, "kpdWeblinkBIH"}, {8524, "kpdWeblinkHRV"},
    {8525, "kpdWeblinkSVN"}, {8526, "kpdWeblinkCHN"}, {8527, "kpdWeblinkJPN"}, {8528, "kpdWeblinkTUR"},
    {8530, "kpdWeblinkCHE"}, {8531, "kpdWeblinkUKR"}, {8532, "kpdWeblinkAUT"}, {8533, "kpdWeblinkBEL"},
    {8534, "kpdWeblinkUS"},  {8535, "kpdWeblinkBRA"},
};

template <size_t size>
int Store(const LocalisedAttribute (&table)[size], KB_HANDLE database, KB_RECORD* record, const ticpp::Element& device,
          int line, const char* function) {
    try {
        for (const LocalisedAttribute& attribute : table) {
            const ticpp::Element* child = device.FirstChildElement(attribute.element, false);
            const std::string text = child ? child->GetText(false) : std::string();
            if (text.empty()) continue;
            InsertText(database, record, static_cast<short>(attribute.number), text);
        }
    } catch (const AttributeTooLarge&) {
        throw;  // a product that does not fit must not be stored in part
    } catch (...) {
        ReportException(function, kSource, line, function);
    }
    return 0;
}

}  // namespace

int SetAttributeDescriptionNN(const KB_HANDLE* database, KB_RECORD* record, const ticpp::Element& device) {
    return Store(kDescriptionAttributes, *database, record, device, 74, "SetAttributeDescriptionNN");
}

int SetAttributeWebLinkNN(const KB_HANDLE* database, KB_RECORD* record, const ticpp::Element& device) {
    return Store(kWebLinkAttributes, *database, record, device, 140, "SetAttributeWebLinkNN");
}
