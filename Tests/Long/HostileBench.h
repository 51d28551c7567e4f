// Runs of the command against a server that does not mean well: a suite's Arm tells the web server what to answer.
// Boxes are answered as soon as they are asked for. One run in fifty, the first among them, meets the real dialog; in
// the others it ends with OK before it opens.
#pragma once

#include "RequestTarget.h"
#include "SweepBench.h"

class HostileBench : public SweepBench {
 protected:
    HostileBench() { original_ = dialog_.original<Dialog>(); }

    void Arm(const bench::InjectedFault& failure) override {
        boxes_.clear();
        showsDialog_ = failure.ordinal % 50 == 1;
    }
    void Disarm() override {
        showsDialog_ = false;
        TheWebServer().Reset();
    }
    bool Met(const bench::InjectedFault&) const override { return CountOf("GET /klimora/export/") > 0; }
    void AfterRun() override {
        committed_ = CountOf("AcTransactionManager::endTransaction") > 0;
        for (const std::string& told : expected_)
            EXPECT_NE(ShownToUser().find(told), std::string::npos) << ShownToUser();
        // What does not fit into a record is the record database's to refuse.
        const std::vector<std::string> accusations = bench::Violations();
        bench::ClearViolations();
        for (const std::string& sentence : accusations)
            if (sentence.find("kbinsertatt was called for the attribute ") != 0) bench::ReportViolation(sentence);
    }
    std::string ShownToUser() override { return Printed() + boxes_; }

    // After a run with the usual answers.
    std::string GoodResult() {
        LearnHealthyRun();
        const std::string path = Calls("GET /klimora/export/").at(0);
        return Published("/klimora/export/" + path.substr(0, path.find(' ')));
    }
    static std::string Published(const std::string& path) {
        return TheWebServer().Answer("GET", bench::ParseRequestTarget(path), bench::ServerFault::kNone).body;
    }

    std::vector<std::string> expected_;  // what the user must be told of the next answer
    bool committed_ = false;             // after the last one

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
