// The product record as the database receives it: every attribute with its bytes, for each form of pressure-drop data.
#include "CommandBench.h"
#include "ResultText.h"

namespace {

class DownloadedRecord : public CommandBench {
 protected:
    void Build(const std::string& devices) {
        StartOver();
        TheWebServer().PublishInstead(ResultText(devices));
        ChoosesASilencer();
        ConfirmsInsertion();
        Run();
    }

    // Attributes in the order of their insertion, each as its number, a blank, and what the library journals of it.
    std::vector<std::string> Attributes() const {
        std::vector<std::string> attributes;
        for (const std::string& call : Calls("kbinsertatt "))
            attributes.push_back(call.substr(0, call.find(" ->")));
        return attributes;
    }
    std::string Attribute(int number) const {
        const std::string start = std::to_string(number) + " ";
        for (const std::string& attribute : Attributes()) {
            if (attribute.compare(0, start.size(), start) == 0) return attribute.substr(start.size());
        }
        return "(none)";
    }
};

TEST_F(DownloadedRecord, EveryAttributeInItsOrder) {
    Build(DeviceText()
              .And("DescriptionSVN", "Du\xC5\xA1ilnik")
              .And("DescriptionFIN", "Vaimennin")
              .And("DescriptionDEU", "")
              .And("DescriptionGB", "no language")
              .And("kpdWeblink", "http://x")
              .And("kpdWeblinkGBR", "http://x/gb")
              .And("kpdWeblinkFRA", "")
              .And("MarketArea", "FIN;SWE")
              .And("KmodelParams", "<L>900</L><B/><D>250</D>")
              .Text());
    EXPECT_EQ(Attributes(), (std::vector<std::string>{
                                "1150 count=1 2 bytes 0000",
                                "1503 count=6 'Sorvik'",
                                "1562 count=6 'TEST 1'",
                                "9550 count=9 'Vaimennin'",
                                "9552 count=13 'Test silencer'",
                                "9590 count=9 'Du\xC5\xA1ilnik'",
                                "8529 count=8 'http://x'",
                                "8503 count=11 'http://x/gb'",
                                "1512 count=7 'FIN;SWE'",
                                "1525 count=12 'SV-SRC-ROUND'",
                                "1507 count=11 'L=900;D=250'",
                                "1650 count=1 22 bytes 0A00FA000000000020410000C8430000004000004842",
                                "1651 count=1 8 bytes 0000C84200004041",
                                "1653 count=1 16 bytes 0000C842000040410102030405060708",
                                "1654 count=1 8 bytes 0102030405060708",
                                "1110 count=1 2 bytes 0000",
                            }));
    ExpectCommitted();
}

TEST_F(DownloadedRecord, PressureDropFollowsFnc) {
    const std::string curve = "<A>1</A><Dp>2</Dp><Qv>0.5</Qv>", steep = "<A>2</A><Dp>8</Dp><Qv>1</Qv>";
    const std::string point = "count=1 8 bytes 0000C84200004041";
    const std::string curves = "count=2 24 bytes 0000803F0000003F00000040000000400000803F00000041";
    const struct {
        const char* fnc;
        std::string point, curves;
    } cases[] = {{"10", point, "(none)"},   {"110", point, "(none)"},   {"20", "(none)", curves},
                 {"120", "(none)", curves}, {"30", "(none)", "(none)"}, {"0", "(none)", "(none)"}};
    for (const auto& c : cases) {
        UseServer({});
        Build(DeviceText()
                  .With("AirDeviceDimData", DeviceText::Dimensions(c.fnc))
                  .And("aDpCurves", curve)
                  .And("aDpCurves", steep)
                  .Text());
        EXPECT_EQ(Attribute(1651), c.point) << c.fnc;
        EXPECT_EQ(Attribute(1652), c.curves) << c.fnc;
        ExpectCommitted();
    }
}

TEST_F(DownloadedRecord, SoundAndShapesMayRepeatOrBeMissing) {
    const std::string bands =
        "<Lw63>300</Lw63><Lw125>2</Lw125><Lw250>3</Lw250><Lw500>4</Lw500><Lw1000>5</Lw1000><Lw2000>6</Lw2000>"
        "<Lw4000>7</Lw4000><Lw8000>8</Lw8000>";
    Build(DeviceText().And("dLw", bands).And("Shape", "1").Without("QvDpLwPoints").Text());
    EXPECT_EQ(Attribute(1653), "(none)");
    EXPECT_EQ(Attribute(1654), "count=2 16 bytes 01020304050607082C02030405060708");
    EXPECT_EQ(Attribute(1110), "count=2 4 bytes 00000100");
    UseServer({});
    Build(DeviceText().Without("dLw").With("KModelID", "SV-src-ROUND").And("KmodelParams", "<A/><B/>").Text());
    EXPECT_EQ(Attribute(1654), "(none)");
    EXPECT_EQ(Attribute(1525), "count=12 'SV-SRC-ROUND'");
    EXPECT_EQ(Attribute(1507), "count=0 ''");
}

TEST_F(DownloadedRecord, LastOfSeveralDevicesBecomesCurrent) {
    StartOver();
    TheWebServer().PublishInstead(ResultText(DeviceText().Text() + DeviceText().With("ID", "TEST-2").Text()));
    Picks("2A3");
    InTheConfigurator("choose first");
    TypesUserCode("HALL");
    ConfirmsInsertion();
    Run();
    EXPECT_EQ(CountOf("kbsaverec"), 2u);
    EXPECT_EQ(Owed().size(), 1u) << "the first device's record is not released";
    TakeBackWhatIsOwed();
    // The dialog gave its code to the first device; the second takes the first free one.
    EXPECT_EQ(CountOf("AcApDocManager::sendStringToExecute KLIMSILX\\nTEST-2\\nSORV2\\n"), 1u);
    ExpectCommitted();
}

}  // namespace
