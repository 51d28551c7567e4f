// Refusal, the exception with which the server rejects a call: one of the server's codes and a sentence for
// getLastErrorText. The interface methods catch it and put the code into the call's result argument.
#pragma once

#include <stdexcept>
#include <string>

namespace bench::klimora {

enum RefusalCode : long {
    kNoProjectOpen = -101,
    kNoSuchPart = -102,
    kNoSuchAttribute = -103,
    kBadPath = -104,
    kBadValue = -105,
    kReadOnly = -106,
    kBadCommand = -110,
    kUnknownProduct = -120,
    kProductFile = -121,
    kBinaryVariable = -130,
    kDrawing = -140,
};

class Refusal : public std::runtime_error {
 public:
    Refusal(long code, const std::string& text) : std::runtime_error(text), code_(code) {}
    long code() const { return code_; }

 private:
    long code_;
};

}  // namespace bench::klimora
