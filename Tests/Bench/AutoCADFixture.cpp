#include "AutoCADFixture.h"

#include "acdocman.h"
#include "dbapserv.h"

void AutoCADTest::SetUp() {
    bench::ResetBench();
    bench::StartAutoCAD();
    bench::NewDrawing("plan.dwg");
    bench::ClearJournal();
}

void AutoCADTest::TearDown() {
    bench::StopAutoCAD();
    EXPECT_THAT(bench::BenchBalance(), testing::IsEmpty());
    EXPECT_THAT(bench::Accusations(), testing::IsEmpty());
    bench::ResetBench();
}

std::vector<std::string> AutoCADTest::TakeAccusations() {
    std::vector<std::string> accusations = bench::Accusations();
    bench::ClearAccusations();
    return accusations;
}

void AutoCADTest::RunAs(const std::string& name, std::function<void()> body) {
    bench::AddForeignCommand(name, std::move(body));
    EXPECT_TRUE(bench::RunCommand(name));
    bench::RemoveForeignCommand(name);
}

std::string AutoCADTest::AddTaggedReference(double rotation) {
    return bench::AddBlockReference(
        {"", "TAG", "0", {100, 200, 0}, rotation, {0, 0, 1}, {{"CODE", "A"}, {"CODE", "B"}, {"NOTE", "C"}}});
}

AcDbDatabase* AutoCADTest::Database() {
    bench::Quiet quiet;
    return acdbHostApplicationServices()->workingDatabase();
}

AcApDocument* AutoCADTest::Document() {
    bench::Quiet quiet;
    return acDocManager->curDocument();
}

AcDbObjectId AutoCADTest::Id(const std::string& handle) {
    bench::Quiet quiet;
    AcDbObjectId id;
    EXPECT_EQ(Database()->getAcDbObjectId(id, false, AcDbHandle(std::stoull(handle, nullptr, 16))), Acad::eOk);
    return id;
}

AcDbEntity* AutoCADTest::Opened(const std::string& handle, AcDb::OpenMode mode) {
    AcDbEntity* entity = nullptr;
    EXPECT_EQ(acdbOpenObject(entity, Id(handle), mode), Acad::eOk);
    return entity;
}

std::string Narrowed(const wchar_t* text) {
    std::string narrow;
    for (; *text != L'\0'; ++text)
        narrow += static_cast<char>(*text);
    return narrow;
}
