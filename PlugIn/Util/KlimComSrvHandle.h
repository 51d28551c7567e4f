// Owns the connection to Klimora's server. Connects in the constructor, which throws what KlimComSrvImpl throws, and
// disconnects in the destructor. Forwards every operation.
#pragma once

#include <memory>

#include "Util/KlimComSrvImpl.h"

class KlimComSrvHandle {
 public:
    KlimComSrvHandle() : implementation_(new KlimComSrvImpl) {}

    KlimComSrvImpl* operator->() const { return implementation_.get(); }
    KlimComSrvImpl& operator*() const { return *implementation_; }

 private:
    std::unique_ptr<KlimComSrvImpl> implementation_;
};
