// What the program is to do without asking anybody, taken from the environment variable SORVIK_BENCH_CONFIGURATOR:
// "choose first", "choose PRODUCT" (several with commas between), "cancel", "hang" (stays open until it is terminated),
// "crash", "exit N", or "ask", which shows the window. Nothing, or anything else, cancels.
#pragma once

#include <string>

struct Script {
    enum class Act { kAsk, kChooseFirst, kChoose, kCancel, kHang, kCrash, kExit };
    Act act = Act::kCancel;
    std::string products;  // of kChoose, with commas
    int exitCode = 0;      // of kExit
};

Script ParseScript(const std::string& text);

// An environment variable's text, empty when it is not set.
std::string Environment(const char* name);
