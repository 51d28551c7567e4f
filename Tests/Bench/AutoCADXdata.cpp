// Extended data: what may be stored, and who owns what is handed out.
#include "AutoCADFixture.h"

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

class AutoCADXdata : public AutoCADTest {
 protected:
    void SetUp() override {
        AutoCADTest::SetUp();
        handle_ = AddDuct();
        entity_ = Opened(handle_, AcDb::kForWrite);
        EXPECT_EQ(acdbRegApp(L"SORV"), RTNORM);
    }
    void TearDown() override {
        entity_->close();
        AutoCADTest::TearDown();
    }

    Acad::ErrorStatus Store(resbuf* chain) {
        const Acad::ErrorStatus status = entity_->setXData(chain);
        acutRelRb(chain);
        return status;
    }
    // "1001:SORV 1000:A=1 ..." of what the object hands out for the application.
    std::string Stored(const wchar_t* application) {
        resbuf* chain = entity_->xData(application);
        std::string text;
        for (const resbuf* node = chain; node != nullptr; node = node->rbnext) {
            text += std::to_string(node->restype) + ":";
            text += node->restype < 1010 ? Narrowed(node->resval.rstring) : std::to_string(node->resval.rint);
            text += node->rbnext == nullptr ? "" : " ";
        }
        if (chain != nullptr) {
            EXPECT_EQ(acutRelRb(chain), RTNORM);
        }
        return text;
    }

    std::string handle_;
    AcDbEntity* entity_ = nullptr;
};

}  // namespace

TEST_F(AutoCADXdata, ApplicationsAreStoredApartAndRemovedByTheirNameAlone) {
    EXPECT_EQ(acdbRegApp(L"OTHER"), RTNORM);
    EXPECT_EQ(acdbRegApp(L"sorv"), RSERR);
    EXPECT_EQ(Store(acutBuildList(1001, L"SORV", 1000, L"A=1", 1070, 7, 1001, L"OTHER", 1000, L"X", RTNONE)),
              Acad::eOk);
    EXPECT_EQ(Store(acutBuildList(1001, L"SORV", 1000, L"B=2", RTNONE)), Acad::eOk);
    EXPECT_EQ(Stored(L"SORV"), "1001:SORV 1000:B=2");
    EXPECT_EQ(Stored(L"OTHER"), "1001:OTHER 1000:X");
    EXPECT_EQ(Store(acutBuildList(1001, L"SORV", RTNONE)), Acad::eOk);
    EXPECT_EQ(Stored(L"SORV"), "");
    EXPECT_EQ(Stored(nullptr), "1001:OTHER 1000:X");
}

TEST_F(AutoCADXdata, RefusalsLeaveTheObjectAsItWas) {
    ASSERT_EQ(Store(acutBuildList(1001, L"SORV", 1000, L"A=1", RTNONE)), Acad::eOk);
    const std::wstring much(9000, L'x');
    struct {
        resbuf* chain;
        Acad::ErrorStatus status;
    } const cases[] = {
        {nullptr, Acad::eInvalidResBuf},
        {acutBuildList(1000, L"A=2", RTNONE), Acad::eBadDxfSequence},
        {acutBuildList(1001, L"UNKNOWN", 1000, L"A=2", RTNONE), Acad::eRegappIdNotFound},
        {acutBuildList(1001, L"SORV", 1000, L"A=2", RTSHORT, 5, RTNONE), Acad::eInvalidDxfCode},
        {acutBuildList(1001, L"SORV", 1000, much.c_str(), 1000, much.c_str(), RTNONE), Acad::eXdataSizeExceeded},
    };
    for (const auto& refused : cases) {
        EXPECT_EQ(entity_->setXData(refused.chain), refused.status);
        if (refused.chain != nullptr) acutRelRb(refused.chain);
        EXPECT_EQ(Stored(L"SORV"), "1001:SORV 1000:A=1");
    }
    EXPECT_EQ(entity_->downgradeOpen(), Acad::eOk);
    EXPECT_EQ(Store(acutBuildList(1001, L"SORV", 1000, L"A=2", RTNONE)), Acad::eNotOpenForWrite);
}

TEST_F(AutoCADXdata, HandedOutChainIsACopyThatIsOwed) {
    ASSERT_EQ(Store(acutBuildList(1001, L"SORV", 1000, L"A=1", RTNONE)), Acad::eOk);
    resbuf* chain = entity_->xData(L"SORV");
    EXPECT_THAT(bench::BenchBalance(), testing::Contains("resbuf chain xData SORV of " + handle_));
    chain->rbnext->resval.rstring[0] = L'Z';
    EXPECT_EQ(Stored(L"SORV"), "1001:SORV 1000:A=1");
    acutRelRb(chain);
    EXPECT_EQ(entity_->setXData(chain), Acad::eInvalidResBuf);
    EXPECT_THAT(TakeAccusations(), ElementsAre(HasSubstr("setXData was called on a result buffer that was already")));
}
