// How the server says no: every refusal carries one of its own codes and a sentence for getLastErrorText. Refusals are
// thrown inside the server and caught at its border, where the code goes into the result argument of the call.
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
