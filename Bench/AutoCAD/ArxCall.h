// One call from a module to AutoCAD: call log and fault injection as in bench::Call, plus a check that AutoCAD is
// called on its own thread. `failed` and `done` log the result and return it, so a function reads "if (call.fails())
// return call.failed(usual); ... return call.done(result);". A releasing call (close, release, remove, abort) with an
// injected fault still releases and only returns the failure, because its caller cannot do anything else about it.
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
