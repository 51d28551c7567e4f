// Fixture for the session's steps apart from a whole run: Klimora with the sample project, and the results of earlier
// steps.
#pragma once

#include <fstream>
#include <string>
#include <vector>

#include "BenchStatistics.h"
#include "KL_Conn.h"
#include "KlimoraBench.h"
#include "Robot.h"
#include "TestFiles.h"

class SessionBench : public KlimoraBench {
 protected:
    SessionBench() {
        StartServer();
        OpenSample();
        bench::ClearStatisticsEvents();
    }

    // Opens the sample project with the first `found` in its text replaced.
    static void OpenSampleWith(const std::string& found, const std::string& replacement) {
        std::string project = ReadWholeFile(SAMPLE_FOLDER "/office.xml"), error;
        const size_t at = project.find(found);
        ASSERT_NE(at, std::string::npos) << found;
        bench::NewDrawing("Office.dwg");
        ASSERT_TRUE(bench::OpenProjectText(project.replace(at, found.size(), replacement), error)) << error;
    }

    // Passes the session a result, as the configurator would leave it.
    static int Take(KlConn& session, const std::string& xml) {
        WriteWholeFile(session.WorkingFolder() + "/output.xml", xml);
        return session.GetResultsFromConfigurator(nullptr);
    }

    static std::string Line(const std::string& text) { return "\nSorvik Klimora Cloud Plugin: " + text + "\n"; }
};
