// One call of a module to AutoCAD: journal line and failure plan as bench::Call has them, plus the rule that AutoCAD is
// called on its own thread. `failed` and `done` write the result into the journal and hand it through, so that a
// function reads "if (call.fails()) return call.failed(usual); ... return call.done(result);". A call that gives
// something back (close, release, remove, abort) and is planned to fail gives it back all the same and only reports the
// failure: the caller could do nothing else about it.
#pragma once

#include <string>

#include "BenchControl.h"

namespace bench {

class ArxCall : public Call {
 public:
    ArxCall(const char* name, const std::string& arguments);

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

}  // namespace bench
