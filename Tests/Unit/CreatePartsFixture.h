// Vocabulary of the tests that create parts: a placement whose numbers all differ, and what the server was sent.
#pragma once

#include "KlimoraBench.h"

class CreatePartsTest : public ConnectedBench {
 protected:
    static constexpr char kPosition[] = "<Position><WCS>1.500000 -2000.000000 0.333333</WCS></Position>";
    static constexpr char kDirection[] = "<Direction><WCS>0.000000 1.000000 0.000000</WCS></Direction>";
    static constexpr char kNormal[] = "<Normal><WCS>0.000000 0.000000 1.000000</WCS></Normal>";

    static PartPlacement Placement() {
        return {AcGePoint3d(1.5, -2000, 1.0 / 3), AcGeVector3d(0, 1, 0), AcGeVector3d(0, 0, 1)};
    }
    static std::string PlacementText() { return std::string(kPosition) + kDirection + kNormal; }

    static bool Has(const std::string& text, const char* part) { return text.find(part) != std::string::npos; }

    // Calls of one method since the last look, with their results.
    static std::vector<std::string> Sent(const std::string& method) {
        std::vector<std::string> calls = Calls("IKlimora200805::" + method + " ");
        bench::ClearJournal();
        return calls;
    }
    static std::string Report(const std::string& message, int line, const std::string& function,
                              const std::string& text) {
        return ConnectedBench::Report(
            message, "KLComUtils_CreateParts(" + std::to_string(line) + "):KLComUtils::" + function, text);
    }
};
