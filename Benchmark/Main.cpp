// Runs the rows of ./benchmark. An argument selects the rows whose name contains it.
#include <windows.h>
#include <oleauto.h>

#include <cstdio>
#include <exception>
#include <memory>
#include <random>
#include <sstream>
#include <thread>

#include "BenchAutoCAD.h"
#include "BenchControl.h"
#include "BenchKlimora.h"
#include "CommandRows.h"
#include "KL_Conn.h"
#include "KL_Conn_SorvSilencer.h"
#include "Lib/ModuleIdentity.h"
#include "LibraryRows.h"
#include "QuickFakes.h"
#include "Robot.h"
#include "TestFiles.h"
#include "Util/ComTypes.h"
#include "Util/PartCommands.h"
#include "Util/XmlTextBuilder.h"

namespace {

constexpr char kPath[] = "/Project/KPDClass[dSilencerType]/Part[1234]/ProductKey";

// Returns a result with this number of devices, each with the usual content of a silencer.
std::string ResultOf(int devices) {
    const std::string levels =
        "<Lw63>31</Lw63><Lw125>32</Lw125><Lw250>33</Lw250><Lw500>34</Lw500><Lw1000>35</Lw1000><Lw2000>36</Lw2000>"
        "<Lw4000>37</Lw4000><Lw8000>38</Lw8000>";
    std::string xml = "<r><DdkFileUrl>http://d</DdkFileUrl><KpdFileUrl>http://k</KpdFileUrl>";
    for (int i = 0; i < devices; ++i)
        xml +=
            "<device><ID>SRC-" + std::to_string(i) +
            "</ID><ProductCodeALL>SRC 250 900</ProductCodeALL><DescriptionGBR>Circular duct silencer</DescriptionGBR>"
            "<kpdWeblink>http://x</kpdWeblink><KModelID>SV-ROUND</KModelID><AirDeviceDimData><Fnc>10</Fnc>"
            "<D1>250</D1><D2>0</D2><Qvmin>25</Qvmin><Qvmax>440</Qvmax><Dpmin>1</Dpmin><Dpmax>22.2</Dpmax>"
            "</AirDeviceDimData><DpCurve><Qv>200</Qv><Dp>4.6</Dp></DpCurve><QvDpLwPoints><Qv>200</Qv><Dp>4.6</Dp>" +
            levels + "</QvDpLwPoints><dLw>" + levels + "</dLw><Shape>0</Shape></device>\n";
    return xml + "</r>";
}

// Grows the heap to the size that the rows need, so that they do not measure the kernel's page allocation. A few blocks
// stay, because only the end of a heap segment is returned to the system.
void GrowHeap() {
    static std::vector<std::unique_ptr<char[]>> blocks;
    for (int i = 0; i < 100 * 1024; ++i)
        blocks.emplace_back(new char[1000])[0] = 'x';
    for (size_t i = 0; i < blocks.size(); ++i) {
        if (i % 64 != 63) blocks[i].reset();
    }
}

// ---- Texts to the server ---------------------------------------------------------------------------------------

void TableHex(const void* bytes, size_t size, char* text) {
    static const char digits[] = "0123456789ABCDEF";
    const uint8_t* from = static_cast<const uint8_t*>(bytes);
    for (const uint8_t* const end = from + size; from < end; ++from) {
        *text++ = digits[*from >> 4];
        *text++ = digits[*from & 15];
    }
    *text = '\0';
}

// Measures the length, then formats once.
std::string MeasuredFormat(const char* format, const char* text, int number) {
    std::string formatted(static_cast<size_t>(std::snprintf(nullptr, 0, format, text, number)), '\0');
    std::snprintf(formatted.data(), formatted.size() + 1, format, text, number);
    return formatted;
}

void TextRows(Table& table) {
    constexpr int kMegabyte = 1 << 20;
    const std::string text(kMegabyte, 'x');
    std::string ours, peers;
    XmlTextBuilder builder;
    table.Ratio("AppendFormat of 1 MB / measure, then format once", 1.4, Timed([&] {
                    builder = {};
                    builder.AppendFormat("<V>%s</V>%d", text.c_str(), 5);
                }),
                Timed([&] { peers = MeasuredFormat("<V>%s</V>%d", text.c_str(), 5); }));
    table.Same([&] { return builder.Text() == peers; });

    KLComUtils utils;
    utils.Connect();
    KlimComSrvImpl connection;
    constexpr int kChunk = 10240;
    std::string hex(2 * kChunk, '\0');
    table.Ratio("1 MB into a binary variable / hex by a table", 1.4,
                Timed([&] { utils.BinVariableSetData(1, text.data(), kMegabyte); }), Timed([&] {
                    connection.setBinVariableSize(1, kMegabyte);
                    for (int at = 0; at < kMegabyte; at += kChunk) {
                        TableHex(text.data() + at, std::min(kChunk, kMegabyte - at), hex.data());
                        connection.setBinVariableData(1, at, hex.c_str());
                    }
                }));
    const std::string type = "EWAPART_SUPPLY", part = "2A4";
    const PartProduct product = {"dSilencerType", "SORV1", "SRC-250-900", "SRC-250-900"};
    const PartPlacement placement = {AcGePoint3d(1.5, -2000, 0.25), AcGeVector3d(0, 1, 0), AcGeVector3d(0, 0, 1)};
    const auto write = [&] { return ConnectedDeviceCommand(product, type, placement, part); };
    const auto stream = [&, &p = placement] {
        std::ostringstream text;
        text << std::fixed << "<CreatePart><KPDClass><Name>" << product.kpdClassName << "</Name></KPDClass><Usercode>"
             << product.userCode << "</Usercode><Productfamilykey>" << product.familyKey
             << "</Productfamilykey><Productkey>" << product.productKey << "</Productkey><Part><Type><Define>" << type
             << "</Define></Type><Position><WCS>" << p.position.x << ' ' << p.position.y << ' ' << p.position.z
             << "</WCS></Position><Normal><WCS>" << p.normal.x << ' ' << p.normal.y << ' ' << p.normal.z
             << "</WCS></Normal><Direction><WCS>" << p.direction.x << ' ' << p.direction.y << ' ' << p.direction.z
             << "</WCS></Direction><Connection><ConnectedTo>" << part
             << "</ConnectedTo></Connection></Part></CreatePart>";
        return text.str();
    };
    table.Ratio("part-creation command / ostringstream", 1.4, Timed([&] { ours = write(); }, 500),
                Timed([&] { peers = stream(); }, 500));
    table.Same([&] { return ours == peers; });
    const long long before = allocations;
    write();
    table.AtMost("heap allocations of a part-creation command", 2, allocations - before);
}

BSTR MeasuredBstr(const char* text) {
    const int length = MultiByteToWideChar(CP_ACP, 0, text, -1, nullptr, 0);
    const BSTR wide = SysAllocStringLen(nullptr, static_cast<UINT>(length));
    MultiByteToWideChar(CP_ACP, 0, text, -1, wide, length);
    return wide;
}

void AttributeRows(Table& table, const QuickServer& server) {
    KlimComSrvImpl connection;
    std::string value;
    const auto ours = Timed([&] { connection.getPartAtt("", kPath, value); }, 3000);
    const auto peer = Timed(
        [&] {
            const BSTR part = MeasuredBstr(""), attribute = MeasuredBstr(kPath);
            BSTR answer = nullptr;
            long result = 0;
            server->getPartAtt(part, attribute, &answer, &result);
            for (const BSTR text : {part, attribute, answer})
                SysFreeString(text);
        },
        3000);
    table.Ratio("getPartAtt, trace off / two BSTRs and the call", 1.6, ours, peer);
    connection.setTrace({true, true, false});
    table.Ratio("getPartAtt, trace kept / two BSTRs and the call", 2.3, ours, peer);
}

// ---- Steps of the session --------------------------------------------------------------------------------------

constexpr int kManyDevices = 1200;  // just below the limits of a result

// Reads the given result, or the one in the working folder, into a new document.
void Take(KlConn& session, const std::string& result) {
    if (!result.empty()) WriteWholeFile(session.WorkingFolder() + "/output.xml", result);
    if (session.GetResultsFromConfigurator(nullptr) != 0) throw std::runtime_error("a result is refused");
}

void ResultRows(Table& table, KlConn& session) {
    const std::string many = ResultOf(kManyDevices), file = session.WorkingFolder() + "/output.xml";
    Take(session, many);
    table.Ratio("read a result of 1,200 devices / TinyXML", 1.5, Timed([&] { Take(session, ""); }), Timed([&] {
                    TiXmlDocument document;
                    if (!document.LoadFile(file)) throw std::runtime_error("TinyXML refuses the result");
                }));

    const ImportPatch noFiles(
        "CreateFileA", +[]() -> HANDLE { return nullptr; });
    KlConn small;
    if (small.Initialize() != 0) throw std::runtime_error("the session does not begin");
    Take(small, ResultOf(100));
    const auto build = [](KlConn& of) { return [&of] { of.AddDeviceFromXMLToDatabase(kSilencerCommand); }; };
    const auto each = [](const Run& run, int devices) { return [=] { return run() / devices; }; };
    table.Ratio("record of a device: of 1,200 / of 100", 1.3, each(Timed(build(session), 10), kManyDevices),
                each(Timed(build(small), 100), 100));
    const auto count = [&](int devices, const long long& counter) {
        Take(small, ResultOf(devices));
        const long long before = counter;
        build(small)();
        return counter - before;
    };
    table.AtMost("kbinsertatt calls of a device", 11, count(1, QuickRun::insertions));
    table.AtMost("heap allocations of a device", 42, (count(1100, allocations) - count(100, allocations) + 999) / 1000);
}

void SilencerRows(Table& table, KlConn& session, const QuickServer& server) {
    // Returns the time per silencer, averaged over several turns of the step.
    const auto of = [](int silencers, int turns, auto step) {
        return [=] {
            double sum = 0;
            for (int turn = 0; turn < turns; ++turn) {
                QuickServer::SetSilencers(silencers);
                ticpp::Element list("list");
                sum += Timed([&] { step(&list); })();
            }
            return sum / turns / silencers;
        };
    };
    const auto exporting = [&](ticpp::Element* list) { session.ExportExistingDevices(list, kSilencerCommand); };
    const auto proposing = [&](ticpp::Element*) { session.ProposeUserCode(kSilencerClass, ""); };
    table.Ratio("export of a silencer: of 10,000 / of 100", 1.3, of(10000, 1, exporting), of(100, 100, exporting));
    table.Ratio("proposal, a silencer: of 10,000 / of 100", 1.3, of(10000, 1, proposing), of(100, 100, proposing));

    const BStr part(""), attribute(kPath);
    table.Ratio("export of a silencer / its three calls", 14, of(100, 1, exporting), [&] {
        QuickServer::SetSilencers(100);
        return 3 * Timed(
                       [&] {
                           BSTR answer = nullptr;
                           long result = 0;
                           server->getPartAtt(part.get(), attribute.get(), &answer, &result);
                           SysFreeString(answer);
                       },
                       300)();
    });
    const auto count = [&](int silencers, const long long& counter) {
        const long long before = counter;
        of(silencers, 1, exporting)();
        return counter - before;
    };
    const auto ofOne = [&](const long long& counter) {
        return (count(1100, counter) - count(100, counter) + 999) / 1000;
    };
    table.AtMost("COM calls of a silencer in the export", 3, ofOne(QuickServer::calls));
    table.AtMost("heap allocations of a silencer in the export", 6, ofOne(allocations));
}

void EndRow(Table& table, KlConn& session) {
    std::mt19937 random(1);
    const auto run = [&](auto wait) {
        return [&, wait] {
            QuickRun::program = CreateEventA(nullptr, TRUE, FALSE, nullptr);
            double ended = 0;
            std::thread program([&, pause = 30 + random() % 30] {
                Sleep(pause);
                ended = Milliseconds();
                SetEvent(QuickRun::program);
            });
            wait();
            const double seen = Milliseconds();
            program.join();
            return seen - ended;
        };
    };
    table.Delay("configurator's end to going on / bare wait", 20,
                run([&] { session.LaunchConfigurator("program", kSilencerCommand, "http://x", "title"); }),
                run([] { WaitForSingleObject(QuickRun::program, INFINITE); }));
}

void RunRow(Table& table) {
    QuickServer::SetSilencers(1000);
    QuickRun::program = CreateEventA(nullptr, TRUE, TRUE, nullptr);
    bench::Robot robot(bench::MainWindow());
    robot.Expect(bench::Dialog("Configurator").Press(IDOK));
    bench::QueueAnswer({bench::Answer::kPick, "2A3"});
    bench::ClearCallLog();
    bench::ClearTranscript();
    QuickServer::calls = 0;
    SorvSilencer();
    long long calls = QuickServer::calls;
    bool committed = false;
    for (const std::string& line : bench::CallLog()) {
        calls += line.rfind("IKlimora", 0) == 0;
        committed |= line.rfind("AcTransactionManager::endTransaction", 0) == 0;
    }
    if (!committed) throw std::runtime_error("the run failed: " + bench::Transcript());
    table.AtMost("COM calls of a run with 1,000 silencers", 5013, calls);
}

int Benchmark(const std::string& wanted) {
    Table table(wanted);
    if (!LoadLibraryA(kModuleFileName)) throw std::runtime_error("the module cannot be loaded");
    bench::StartAutoCAD();
    bench::NewDrawing("Office.dwg");
    bench::StartKlimora({});
    std::string error;
    if (!bench::OpenProject(SAMPLE_FOLDER "/office.xml", error)) throw std::runtime_error(error);
    GrowHeap();
    {
        const QuickServer server;
        QuickServer::SetSilencers(1000);
        const QuickRun run(ResultOf(1));
        {
            KlConn session;
            if (session.Initialize() != 0) throw std::runtime_error("the session does not begin");
            SilencerRows(table, session, server);
            ResultRows(table, session);
            EndRow(table, session);
        }
        AttributeRows(table, server);
        TextRows(table);
        RunRow(table);
    }
    CommandRows(table);
    LibraryRows(table);
    bench::StopKlimora();
    bench::StopAutoCAD();
    return table.Conclude();
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return Benchmark(argc > 1 ? argv[1] : "");
    } catch (const std::exception& problem) {
        std::printf("%s\n", problem.what());
        return 3;
    }
}
