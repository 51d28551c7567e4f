#include "InterfaceCount.h"

#include "BenchControl.h"

namespace bench::klimora {

int InterfaceCount::Uncounted::depth_ = 0;

ULONG InterfaceCount::Add() {
    if (Uncounted::depth_ > 0) {
        ++others_;
    } else {
        ++clients_;
        Owe("interface reference", name_);
    }
    return clients_ + others_;
}

ULONG InterfaceCount::Release() {
    if (Uncounted::depth_ > 0 && others_ > 0) {
        --others_;
    } else if (clients_ > 0) {
        --clients_;
        Settle("interface reference", name_);
    } else {
        Accuse("Interface " + name_ + " was released more often than it was handed out.");
    }
    return clients_ + others_;
}

}  // namespace bench::klimora
