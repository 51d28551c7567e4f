// The AutoCAD stand-in with the maker's web server beside it, for all cases of the program.
#include <windows.h>

#include "BenchAutoCAD.h"
#include "CommandBench.h"

namespace {
bench::WebServer* g_server = nullptr;
}

bench::WebServer& TheWebServer() {
    return *g_server;
}

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (testing::GTEST_FLAG(list_tests)) return RUN_ALL_TESTS();
    bench::WebServer server("catalogue.xml");
    server.UseAsProxy();
    g_server = &server;
    bench::StartAutoCAD();
    const int result = RUN_ALL_TESTS();
    bench::StopAutoCAD();
    g_server = nullptr;
    return result;
}
