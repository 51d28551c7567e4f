// Runs of the command against a server that does not mean well: a suite's Arm tells the web server what to answer.
// Boxes are answered as soon as they are asked for, and the dialog ends with OK before it opens.
#pragma once

#include "RequestTarget.h"
#include "SweepBench.h"

class HostileBench : public SweepBench {
 protected:
    void Arm(const bench::PlannedFailure&) override { boxes_.clear(); }
    void Disarm() override { TheWebServer().Reset(); }
    bool Met(const bench::PlannedFailure&) const override { return CountOf("GET /klimora/export/") > 0; }
    void Meddle() override {
        committed_ = CountOf("AcTransactionManager::endTransaction") > 0;
        for (const std::string& told : told_)
            EXPECT_NE(Told().find(told), std::string::npos) << Told();
        // What does not fit into a record is the record database's to refuse.
        const std::vector<std::string> accusations = bench::Accusations();
        bench::ClearAccusations();
        for (const std::string& sentence : accusations)
            if (sentence.find("kbinsertatt was called for the attribute ") != 0) bench::Accuse(sentence);
    }
    std::string Told() override { return Printed() + boxes_; }

    // After a run with the usual answers.
    std::string GoodResult() {
        LearnHealthyRun();
        const std::string path = Calls("GET /klimora/export/").at(0);
        return Published("/klimora/export/" + path.substr(0, path.find(' ')));
    }
    static std::string Published(const std::string& path) {
        return TheWebServer().Answer("GET", bench::ParseRequestTarget(path), bench::Trouble::kNone).body;
    }

    std::vector<std::string> told_;  // what the user must be told of the next answer
    bool committed_ = false;         // after the last one

 private:
    static int WINAPI AnswerBox(HWND, LPCSTR text, LPCSTR caption, UINT type) {
        boxes_ += "[" + std::string(caption) + ": " + text + "]";
        return type & MB_YESNO ? IDYES : IDOK;
    }
    static INT_PTR WINAPI AnswerDialog(HINSTANCE, LPCSTR, HWND, DLGPROC, LPARAM) { return IDOK; }

    static inline std::string boxes_;
    const ImportPatch box_{"MessageBoxA", AnswerBox, module()};
    const ImportPatch dialog_{"DialogBoxParamA", AnswerDialog, module()};
};
