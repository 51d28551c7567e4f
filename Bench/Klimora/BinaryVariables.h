// The server's numbered buffers. A client sets the size, sends the bytes in hexadecimal chunks, has a command read the
// contents, and frees the variable; until then a "binary variable" is outstanding. Errors that only a faulty client
// makes (data without a size, beyond the size or not in upper-case hexadecimal, using an incomplete variable) are
// refused and reported as violations.
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
    // Returns the contents for a command; throws Refusal for a variable that is not set or incomplete.
    const std::string& Take(long variable) const;
    // Returns the current contents; empty when there are none.
    std::string Contents(long variable) const;
    // Drops the buffers when the server ends; they stay outstanding.
    void Forget() { variables_.clear(); }

 private:
    struct Variable {
        std::string bytes;
        std::vector<bool> filled;
    };
    std::map<long, Variable> variables_;
};

}  // namespace bench::klimora
