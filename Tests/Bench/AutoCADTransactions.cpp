// Transactions: what an abort takes back, and what an end keeps.
#include "AutoCADFixture.h"

#include "actrans.h"

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

class AutoCADTransactions : public AutoCADTest {
 protected:
    void SetUp() override {
        AutoCADTest::SetUp();
        duct_ = AddDuct("DUCTS");
        tagged_ = AddTaggedReference();
        manager_ = actrTransactionManager;
        before_ = bench::DrawingState();
    }

    void ChangeEverything() {
        EXPECT_EQ(acdbRegApp(L"SORV"), RTNORM);
        AcDbEntity* entity = Opened(duct_, AcDb::kForWrite);
        resbuf* chain = acutBuildList(1001, L"SORV", 1000, L"A=1", RTNONE);
        EXPECT_EQ(entity->setXData(chain), Acad::eOk);
        acutRelRb(chain);
        EXPECT_EQ(entity->transformBy(AcGeMatrix3d::translation(AcGeVector3d(1, 0, 0))), Acad::eOk);
        EXPECT_EQ(entity->setLayer(L"0"), Acad::eOk);
        entity->close();
        entity = Opened(tagged_, AcDb::kForWrite);
        AcDbObjectIterator* iterator = AcDbBlockReference::cast(entity)->attributeIterator();
        AcDbAttribute* attribute = nullptr;
        EXPECT_EQ(acdbOpenObject(attribute, iterator->objectId(), AcDb::kForWrite), Acad::eOk);
        delete iterator;
        attribute->setTextString(L"changed");
        attribute->close();
        EXPECT_EQ(entity->erase(), Acad::eOk);
        entity->close();
        AddDuct("NEW LAYER");
    }

    std::string duct_, tagged_, before_;
    AcTransactionManager* manager_ = nullptr;
};

}  // namespace

TEST_F(AutoCADTransactions, AbortRestoresEverything) {
    ASSERT_NE(manager_->startTransaction(), nullptr);
    ChangeEverything();
    EXPECT_NE(bench::DrawingState(), before_);
    EXPECT_EQ(manager_->abortTransaction(), Acad::eOk);
    EXPECT_EQ(bench::DrawingState(), before_);
}

TEST_F(AutoCADTransactions, EndKeepsWhatAnInnerAbortDidNotTakeBack) {
    manager_->startTransaction();
    ChangeEverything();
    const std::string changed = bench::DrawingState();
    manager_->startTransaction();
    AddDuct();
    EXPECT_EQ(manager_->numActiveTransactions(), 2);
    EXPECT_EQ(manager_->abortTransaction(), Acad::eOk);
    EXPECT_EQ(bench::DrawingState(), changed);
    EXPECT_EQ(manager_->endTransaction(), Acad::eOk);
    EXPECT_EQ(bench::DrawingState(), changed);
}

TEST_F(AutoCADTransactions, OuterAbortTakesBackAnInnerEnd) {
    manager_->startTransaction();
    manager_->startTransaction();
    ChangeEverything();
    EXPECT_EQ(manager_->endTransaction(), Acad::eOk);
    EXPECT_EQ(manager_->abortTransaction(), Acad::eOk);
    EXPECT_EQ(bench::DrawingState(), before_);
}

TEST_F(AutoCADTransactions, HandlesOfAbortedObjectsAreNotGivenAgain) {
    manager_->startTransaction();
    const std::string gone = AddDuct();
    manager_->abortTransaction();
    EXPECT_NE(AddDuct(), gone);
}

TEST_F(AutoCADTransactions, ObjectsOfATransactionAreClosedByItsEnd) {
    AcTransaction* transaction = manager_->startTransaction();
    AcDbObject* object = nullptr;
    ASSERT_EQ(transaction->getObject(object, Id(duct_), AcDb::kForWrite), Acad::eOk);
    EXPECT_EQ(manager_->endTransaction(), Acad::eOk);
    EXPECT_THAT(bench::BenchBalance(), testing::IsEmpty());
    EXPECT_EQ(transaction->getObject(object, Id(duct_)), Acad::eNotTopTransaction);
    EXPECT_THAT(TakeAccusations(), ElementsAre(HasSubstr("after it had ended")));
}

TEST_F(AutoCADTransactions, ObjectsOfATransactionAreNotClosedByTheirUser) {
    AcDbObject* object = nullptr;
    manager_->startTransaction()->getObject(object, Id(duct_), AcDb::kForRead);
    object->close();
    manager_->endTransaction();
    EXPECT_THAT(TakeAccusations(), ElementsAre(HasSubstr("came through a transaction")));
}

TEST_F(AutoCADTransactions, EndWithoutAStartAndAStartWithoutAnEndAreAccused) {
    EXPECT_EQ(manager_->endTransaction(), Acad::eNoActiveTransactions);
    EXPECT_EQ(manager_->abortTransaction(), Acad::eNoActiveTransactions);
    RunAs("FORGETS", [&] { manager_->startTransaction(); });
    EXPECT_THAT(TakeAccusations(), ElementsAre(HasSubstr("endTransaction"), HasSubstr("abortTransaction"),
                                               HasSubstr("FORGETS returned without ending its transaction")));
    EXPECT_THAT(bench::BenchBalance(), ElementsAre("transaction of plan.dwg"));
    manager_->abortTransaction();
}

TEST_F(AutoCADTransactions, FailedEndIsAnAbort) {
    manager_->startTransaction();
    ChangeEverything();
    bench::FailCall("AcTransactionManager::endTransaction", 1);
    EXPECT_NE(manager_->endTransaction(), Acad::eOk);
    EXPECT_EQ(bench::DrawingState(), before_);
    bench::FailCall("AcTransactionManager::startTransaction", 2);
    EXPECT_EQ(manager_->startTransaction(), nullptr);
}
