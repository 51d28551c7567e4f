// The main job: every call of a whole run in its order.
#include "CommandBench.h"

namespace {

class Success : public CommandBench {
 protected:
    Success() {
        ChoosesASilencer();
        ConfirmsInsertion();
    }
};

TEST_F(Success, EveryCallInItsOrder) {
    bench::SetProduct("AutoCAD Mechanical", 24, 2);
    bench::SetSystemVariable("CMDECHO", "7");
    Run();
    bench::SetProduct("AutoCAD", 24, 1);
    EXPECT_EQ(MaskedJournal(), R"(AcApDocManager::curDocument
AcApDocument::transactionManager
AcTransactionManager::startTransaction
KlimoraPluginsStatisticsWrapper::KlimoraPluginsStatisticsWrapper 3 sorvik-autocad-plugin Tq7#pL2~vK9$wR4:xM8!
kbsetwarningmode 0
IKlimora200805::getVersion -> 20120600
IKlimora200805::getPartAtt '' '/dwg/kpjfilename' -> 'C:\Projects\Office\office.kpj' 0
acedSSGet :S:$ \nSorvik: Select a duct: -> 5100
acedSSName {set} 0 -> 5100
acdbGetObjectId 2A3 -> 0
acedSSFree {set} -> 5100
IKlimora200805::getPartAtt '2A3' '/part/system/type/id' -> '0' 0
IKlimora200805::getPartAtt '2A3' '/Part/Type/ID' -> '68' 0
IKlimora200805::getPartAtt '2A3' '/part/shape/id' -> '0' 0
IKlimora200805::getPartAtt '2A3' '/part/diameter' -> '250' 0
IKlimora200805::getPartAtt '2A3' '/part/qv_sizingflow/ls' -> '200' 0
IKlimora200805::getPartAtt '' 'Count(/Project/KPDClass[dSilencerType]/Part)' -> '1' 0
IKlimora200805::getPartAtt '' '/Project/KPDClass[dSilencerType]/Part[0]/ProductKey' -> 'SRC-400-1200' 0
IKlimora200805::getPartAtt '' '/Project/KPDClass[dSilencerType]/Part[0]/ProductCode' -> 'SRC 400 1200' 0
IKlimora200805::getPartAtt '' '/Project/KPDClass[dSilencerType]/Part[0]/UserCode' -> 'SORV1' 0
adsw_acadMainWnd
GET /klimora?action=ljudprog&klsid={session}&diameter=250&airflow=200 -> 200
POST /klimora/choose?klsid={session}&product=SRC-250-900 -> 200
IKlimora200805::getVersion -> 20120600
IKlimora200805::setPartAtt '' '/dwg/flag/noPrjFileAccessCheck' '1' -> 0
GET /klimora/export/{session}.xml -> 200
adsw_acadMainWnd
IKlimora200805::getPartAtt '' 'Count(/Project/KPDClass[dSilencerType]/Part)' -> '1' 0
IKlimora200805::getPartAtt '' '/Project/KPDClass[dSilencerType]/Part[0]/Usercode' -> 'SORV1' 0
IKlimora200805::getPartAtt '' 'Count(/Project/KPDClass[dSilencerType]/Part)' -> '1' 0
IKlimora200805::getPartAtt '' '/Project/KPDClass[dSilencerType]/Part[0]/Usercode' -> 'SORV1' 0
GET /klimora/database/2.4/sorvik.ddk -> 200
GET /klimora/database/2.4/sorvik.kpd -> 200
ddk_opendatabase '{folder}/output.ddk' 1 0 -> 101
kbopendatabase '{folder}/output.ddk' '{folder}/output.kpd' 0 -> 1
ddk_classsymboltoID 101 'dSilencerType' -> 1
kbdeleterec 1 dSilencerType 'SRC-250-900' -> -1
kbcreaterec 1 dSilencerType 'SRC-250-900' -> record
kbinsertatt 1150 count=1 2 bytes 0000 -> 0
kbinsertatt 1503 count=6 'Sorvik' -> 0
kbinsertatt 1562 count=11 'SRC 250 900' -> 0
kbinsertatt 9550 count=71 'Pyöreä äänenvaimennin SRC 250, pituus 900 mm, 50 mm mineraalivillaa' -> 0
kbinsertatt 9551 count=63 'Cirkulär ljuddämpare SRC 250, längd 900 mm, 50 mm mineralull' -> 0
kbinsertatt 9552 count=68 'Circular duct silencer SRC 250, length 900 mm, 50 mm of mineral wool' -> 0
kbinsertatt 9553 count=61 'Rohrschalldämpfer SRC 250, Länge 900 mm, 50 mm Mineralwolle' -> 0
kbinsertatt 9554 count=55 'Rund lyddemper SRC 250, lengde 900 mm, 50 mm mineralull' -> 0
kbinsertatt 9555 count=69 'Silencieux circulaire SRC 250, longueur 900 mm, laine minérale 50 mm' -> 0
kbinsertatt 9558 count=68 'Tłumik okrągły SRC 250, długość 900 mm, wełna mineralna 50 mm' -> 0
kbinsertatt 9559 count=57 'Rund lyddæmper SRC 250, længde 900 mm, 50 mm mineraluld' -> 0
kbinsertatt 9568 count=70 'Круглый шумоглушитель SRC 250, длина 900 мм' -> 0
kbinsertatt 9592 count=39 '円形消音器 SRC 250、長さ 900 mm' -> 0
kbinsertatt 9595 count=65 'Round duct silencer SRC 250, length 900 mm, 2 in. of mineral wool' -> 0
kbinsertatt 8529 count=49 'http://klimora.sorvik.example/products?series=src' -> 0
kbinsertatt 8500 count=61 'http://klimora.sorvik.example/products?series=src&country=fin' -> 0
kbinsertatt 8501 count=61 'http://klimora.sorvik.example/products?series=src&country=swe' -> 0
kbinsertatt 8502 count=61 'http://klimora.sorvik.example/products?series=src&country=deu' -> 0
kbinsertatt 8504 count=61 'http://klimora.sorvik.example/products?series=src&country=fra' -> 0
kbinsertatt 8534 count=60 'http://klimora.sorvik.example/products?series=src&country=us' -> 0
kbinsertatt 1512 count=30 'FIN;SWE;NOR;DNK;GBR;DEU;FRA;US' -> 0
kbinsertatt 1525 count=12 'SV-SRC-ROUND' -> 0
kbfindrec 1 'KMD' 'SV-SRC-ROUND' 0 -> record
kbreleaserec KMD 'SV-SRC-ROUND'
kbinsertatt 1507 count=18 'L=900;D=250;DO=350' -> 0
kbinsertatt 1650 count=1 22 bytes 0A00FA0000000000C8410000DC430000803F9A99B141 -> 0
kbinsertatt 1651 count=1 8 bytes 0000844300000041 -> 0
kbinsertatt 1653 count=3 48 bytes 00005C430000B040312F2C29252019110000A543000048413A3835322E29221A0000DC439A99B141413F3C3935302921 -> 0
kbinsertatt 1654 count=1 8 bytes 03070D17241D130E -> 0
kbinsertatt 1110 count=1 2 bytes 0000 -> 0
kbsaverec 1 dSilencerType 'SRC-250-900' -> 0
kbreleaserec dSilencerType 'SRC-250-900'
ddk_releasedatabase 101
kbclosedatabase 1
IKlimora200805::manageProductData <ManageProductData><Function><Name>Add</Name></Function><KPD><Filename>{folder}/output.kpd</Filename></KPD><KPDClass><Name>dSilencerType</Name></KPDClass><Usercode>SORV2</Usercode><Productfamilykey>SRC-250-900</Productfamilykey></ManageProductData> -> 0
AcApDocManager::curDocument
acedGetVar CMDECHO -> 7
acedSetVar CMDECHO 0 -> 5100
AcApDocManager::sendStringToExecute KLIMSILX\nSRC-250-900\nSORV2\n activate=1 wrapUp=0 echo=0 -> 0
acedSetVar CMDECHO 7 -> 5100
acdbHostApplicationServices
AcDbHostApplicationServices::product
KlimoraPluginsStatisticsWrapper::AddInsertStatistics KLIMORAPLUGIN_INSERT_PRODUCT Sorvik Klimora Cloud Plugin|1.4.2.2611|Sorvik|4b7e20c9-91d3-4a56-8e0f-6c2d95a7b318|Sorvik|3f9a1c07e2d84b6a95c0e7d2a1b8f460|SRC-250-900|SRC-250-900|AutoCAD|AutoCAD Mechanical|Ventilation|dSilencerType||Insert
KlimoraPluginsStatisticsWrapper::FlushStatistics
KlimoraPluginsStatisticsWrapper::CloseStatistics
KlimoraPluginsStatisticsWrapper::~KlimoraPluginsStatisticsWrapper
AcTransactionManager::endTransaction -> 0
)");
    EXPECT_TRUE(bench::StatisticsEvents().at(0).sent);
    EXPECT_EQ(Printed().find(kName), std::string::npos) << "a good run says nothing of its own";
    EXPECT_EQ(bench::PartAttribute("", "/Project/KPDClass[dSilencerType]/Part[1]/Usercode"), "SORV2");
}

}  // namespace
