// Fixture of runs against a faulty web server: a suite's Arm sets the server's response. Patches answer message boxes
// at once. One run in fifty, starting with the fifth, opens the real dialog; in the others the dialog returns OK at
// once.
#pragma once

#include "RequestTarget.h"
#include "SweepBench.h"

class HostileBench : public SweepBench {
 protected:
    HostileBench() { original_ = dialog_.original<Dialog>(); }

    void Arm(const bench::InjectedFault& failure) override {
        boxes_.clear();
        showsDialog_ = failure.ordinal % 50 == 5;
    }
    void Disarm() override {
        showsDialog_ = false;
        TheWebServer().Reset();
    }
    bool Met(const bench::InjectedFault&) const override { return CountOf("GET /klimora/export/") > 0; }
    void AfterRun() override {
        committed_ = CountOf("AcTransactionManager::endTransaction") > 0;
        for (const std::string& text : expected_)
            EXPECT_NE(ShownToUser().find(text), std::string::npos) << ShownToUser();
        // The record database, not the module, rejects values that do not fit into a record.
        const std::vector<std::string> violations = bench::Violations();
        bench::ClearViolations();
        for (const std::string& sentence : violations)
            if (sentence.find("kbinsertatt was called for the attribute ") != 0) bench::ReportViolation(sentence);
    }
    std::string ShownToUser() override { return Printed() + boxes_; }

    // The result of a healthy run.
    std::string GoodResult() {
        LearnHealthyRun();
        const std::string path = Calls("GET /klimora/export/").at(0);
        return Published("/klimora/export/" + path.substr(0, path.find(' ')));
    }
    static std::string Published(const std::string& path) {
        return TheWebServer().Answer("GET", bench::ParseRequestTarget(path), bench::ServerFault::kNone).body;
    }

    std::vector<std::string> expected_;  // texts that the user must read in the next run
    bool committed_ = false;             // whether the last run committed

 private:
    static int WINAPI AnswerBox(HWND, LPCSTR text, LPCSTR caption, UINT type) {
        boxes_ += "[" + std::string(caption) + ": " + text + "]";
        return type & MB_YESNO ? IDYES : IDOK;
    }
    using Dialog = INT_PTR WINAPI(HINSTANCE, LPCSTR, HWND, DLGPROC, LPARAM);
    static INT_PTR WINAPI AnswerDialog(HINSTANCE module, LPCSTR name, HWND owner, DLGPROC procedure, LPARAM session) {
        return showsDialog_ ? original_(module, name, owner, procedure, session) : IDOK;
    }

    static inline std::string boxes_;
    static inline bool showsDialog_ = false;
    static inline Dialog* original_ = nullptr;
    const ImportPatch box_{"MessageBoxA", AnswerBox, module()};
    const ImportPatch dialog_{"DialogBoxParamA", AnswerDialog, module()};
};
