#include "Script.h"

#include <windows.h>

#include <cstdlib>

Script ParseScript(const std::string& text) {
    const size_t blank = text.find(' ');
    const std::string verb = text.substr(0, blank);
    const std::string object = blank == std::string::npos ? std::string() : text.substr(blank + 1);
    Script script;
    if (verb == "ask") script.act = Script::Act::kAsk;
    if (verb == "hang") script.act = Script::Act::kHang;
    if (verb == "crash") script.act = Script::Act::kCrash;
    if (verb == "exit") {
        script.act = Script::Act::kExit;
        script.exitCode = static_cast<int>(std::strtol(object.c_str(), nullptr, 10));
    }
    if (verb == "choose") {
        script.act = object == "first" ? Script::Act::kChooseFirst : Script::Act::kChoose;
        script.products = object;
    }
    return script;
}

std::string Environment(const char* name) {
    char value[1024] = "";
    const DWORD length = GetEnvironmentVariableA(name, value, sizeof value);
    return length < sizeof value ? std::string(value, length) : std::string();
}
