// One call of a module to the AutoCAD stand-in: journal line and failure plan as bench::Call has them, plus the rule
// that AutoCAD is called on its own thread. `failed` and `done` write the result into the journal and hand it through,
// so that a function reads "if (call.fails()) return call.failed(usual); ... return call.done(result);". A call that
// gives something back (close, release, remove, abort) and is planned to fail gives it back all the same and only
// reports the failure: the caller could do nothing else about it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "BenchControl.h"

namespace bench {

class HostCall : public Call {
 public:
    HostCall(const char* name, const std::string& arguments);

    template <class T>
    T failed(T usual) {
        const T code = static_cast<T>(failureCode(static_cast<long>(usual)));
        result(static_cast<long>(code));
        return code;
    }
    template <class T>
    T done(T value) {
        result(static_cast<long>(value));
        return value;
    }
};

// Texts of the journal and of the bench's own interface are narrow, in the system's code page.
std::string Narrow(const wchar_t* text);
std::string Narrow(const std::wstring& text);
std::wstring Wide(const std::string& text);
std::string HandleText(std::uint64_t handle);
// 0 for a text that is no handle.
std::uint64_t HandleFromText(const wchar_t* text);
std::string NumberText(double value);
std::string PointText(const double point[3]);

// Names in AutoCAD are compared without regard to case.
bool SameName(std::wstring_view one, std::wstring_view other);
std::wstring UpperCase(std::wstring text);

}  // namespace bench
