// A client of the Klimora stand-in as tests need it, and the fixture around it: AutoCAD with an empty drawing, a server
// and the sample project. Outputs are poisoned before every call. A case ends with an empty balance and no accusation
// but those that it took with TakeAccusations.
#pragma once

#include <windows.h>
#include <oleauto.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "BenchAutoCAD.h"
#include "BenchControl.h"
#include "BenchKlimora.h"
#include "KLIMCOMSRVLib.h"

// Owner of one interface pointer.
template <class Interface>
class Held {
 public:
    Held() = default;
    explicit Held(Interface* pointer) : pointer_(pointer) {}
    ~Held() { Let(); }
    Held(Held&& other) noexcept : pointer_(other.pointer_) { other.pointer_ = nullptr; }
    Held& operator=(Held&&) = delete;

    Interface* operator->() const { return pointer_; }
    Interface* get() const { return pointer_; }
    explicit operator bool() const { return pointer_ != nullptr; }
    void Let() {
        if (pointer_) pointer_->Release();
        pointer_ = nullptr;
    }

 private:
    Interface* pointer_ = nullptr;
};

struct Answered {
    HRESULT call = 0x0BADF00D;
    long result = 0x0BADF00D;
    std::string text;
};

// Running object of a ProgID: the failing HRESULT of the first step that fails, else S_OK.
HRESULT Running(const wchar_t* progId, IUnknown** object);
template <class Interface>
Held<Interface> Connect(const wchar_t* progId, REFIID id) {
    IUnknown* object = nullptr;
    if (FAILED(Running(progId, &object))) return {};
    void* asked = nullptr;
    const HRESULT result = object->QueryInterface(id, &asked);
    object->Release();
    return Held<Interface>(SUCCEEDED(result) ? static_cast<Interface*>(asked) : nullptr);
}
Held<KLIMCOMSRVLib::IKlimora200805> ConnectKlimora();

class KlimoraBench : public testing::Test {
 protected:
    static void SetUpTestSuite();
    static void TearDownTestSuite();
    void SetUp() override;
    void TearDown() override;

    void Restart(const bench::KlimoraServer& server);
    Answered Get(const std::string& part, const std::string& path);
    Answered Set(const std::string& part, const std::string& path, const std::string& value);
    Answered Manage(const std::string& command);
    Answered Create(const std::string& command);
    Answered CreateStub(const std::string& command);
    Answered Erase(const std::string& command);
    long SetSize(long variable, long size);
    long SetData(long variable, long offset, const std::string& hex);
    long Free(long variable);
    std::string ErrorText();
    std::vector<std::string> TakeAccusations();
    bool InDrawing(const std::string& handle);
};

// A text as the module sends it: the terminating zero is part of it.
class SentText {
 public:
    explicit SentText(const std::string& text);
    ~SentText() { SysFreeString(text_); }
    SentText(const SentText&) = delete;
    SentText& operator=(const SentText&) = delete;
    operator BSTR() const { return text_; }

 private:
    BSTR text_;
};
std::string Received(BSTR text);  // frees it
