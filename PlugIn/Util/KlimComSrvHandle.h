// The rest of the module reaches the server connection through this owner: made, it is connected (or throws what
// KlimComSrvImpl throws); gone, the connection is gone. Every operation is the connection's own.
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
