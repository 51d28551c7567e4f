// References to one interface pointer of a server object. Those of clients are owed ("interface reference IDrawing")
// until they are released; those that the running object table takes and gives back are kept apart.
#pragma once

#include <windows.h>

#include <string>
#include <utility>

namespace bench::klimora {

class InterfaceCount {
 public:
    explicit InterfaceCount(std::string name) : name_(std::move(name)) {}

    ULONG Add();
    // A client that releases what it does not hold is accused; the count stays then.
    ULONG Release();
    const std::string& Name() const { return name_; }

    // While one lives, references are the running object table's.
    class Uncounted {
     public:
        Uncounted() { ++depth_; }
        ~Uncounted() { --depth_; }
        Uncounted(const Uncounted&) = delete;
        Uncounted& operator=(const Uncounted&) = delete;

     private:
        friend class InterfaceCount;
        static int depth_;
    };

 private:
    std::string name_;
    ULONG clients_ = 0;
    ULONG others_ = 0;
};

}  // namespace bench::klimora
