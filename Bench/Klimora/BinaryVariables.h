// The server's numbered buffers. A client sets the size, sends the bytes in hexadecimal chunks, has a command take the
// contents and frees the variable; until then it owes a "binary variable". What only a broken client does (data without
// a size, beyond the size, not in upper-case hexadecimal, a taken variable with holes) is accused besides being
// refused.
// Contract: rows B1 to B5.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace bench::klimora {

class BinaryVariables {
 public:
    void SetSize(long variable, long size);
    void SetData(long variable, long offset, const std::string& hexData);
    void Free(long variable);
    // Contents for a command that takes them; refuses a variable that was not set or not filled.
    const std::string& Take(long variable) const;
    // Contents as they are, empty when there is none.
    std::string Contents(long variable) const;
    // The server ends: the buffers go, what is owed for them stays owed.
    void Forget() { variables_.clear(); }

 private:
    struct Variable {
        std::string bytes;
        std::vector<bool> filled;
    };
    std::map<long, Variable> variables_;
};

}  // namespace bench::klimora
