// The interfaces of Klimora's automation server that the module calls. All are dual interfaces: slots 0 to 2 are
// IUnknown, 3 to 6 IDispatch; the server's own methods follow in the order of its type library. IKlimora201011 extends
// IKlimora200805 and IKlimoraLatest extends both, so all three share one slot numbering.
//
// Assumptions: both objects of a running Klimora are in the running object table; the caller owns every returned BSTR;
// a successful method returns S_OK and stores 0 in its last argument. The four interface identifiers below are
// placeholders. A build for AutoCAD uses the server's type library instead of this header and refuses a header that
// defines KLIMORA_PLACEHOLDER_INTERFACES.
#pragma once

#define KLIMORA_PLACEHOLDER_INTERFACES

#include <windows.h>
#include <oaidl.h>
#include <objbase.h>

namespace KLIMCOMSRVLib {

inline constexpr IID IID_IDrawing = {0x6d1f0a31, 0x52c4, 0x4e0b, {0x9a, 0x17, 0x3c, 0x88, 0x5e, 0x21, 0xb0, 0x01}};
inline constexpr IID IID_IKlimora200805 = {
    0x6d1f0a32, 0x52c4, 0x4e0b, {0x9a, 0x17, 0x3c, 0x88, 0x5e, 0x21, 0xb0, 0x01}};
inline constexpr IID IID_IKlimora201011 = {
    0x6d1f0a33, 0x52c4, 0x4e0b, {0x9a, 0x17, 0x3c, 0x88, 0x5e, 0x21, 0xb0, 0x01}};
inline constexpr IID IID_IKlimoraLatest = {
    0x6d1f0a34, 0x52c4, 0x4e0b, {0x9a, 0x17, 0x3c, 0x88, 0x5e, 0x21, 0xb0, 0x01}};

// A connection keeps a reference to it and calls none of its methods.
struct IDrawing : IDispatch {};

struct IKlimora200805 : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE getVersion(long* version) = 0;                                         // slot 7
    virtual HRESULT STDMETHODCALLTYPE getLastErrorText(BSTR* text) = 0;                                      // slot 8
    virtual HRESULT STDMETHODCALLTYPE getPartAtt(BSTR part, BSTR attribute, BSTR* value, long* result) = 0;  // slot 9
    virtual HRESULT STDMETHODCALLTYPE setPartAtt(BSTR part, BSTR attribute, BSTR value, long* result) = 0;   // slot 10
    virtual HRESULT STDMETHODCALLTYPE getPartAttDouble(BSTR part, BSTR attribute, double* value,
                                                       long* result) = 0;  // slot 11
    virtual HRESULT STDMETHODCALLTYPE setPartAttDouble(BSTR part, BSTR attribute, double value,
                                                       long* result) = 0;  // slot 12
    virtual HRESULT STDMETHODCALLTYPE getPartAttPoint(BSTR part, BSTR attribute, double* x, double* y, double* z,
                                                      long* result) = 0;  // slot 13
    virtual HRESULT STDMETHODCALLTYPE setPartAttPoint(BSTR part, BSTR attribute, double x, double y, double z,
                                                      long* result) = 0;                        // slot 14
    virtual HRESULT STDMETHODCALLTYPE createPart(BSTR command, BSTR* reply, long* result) = 0;  // slot 15
    virtual HRESULT STDMETHODCALLTYPE selectPart(BSTR command, BSTR* reply, long* result) = 0;  // slot 16
    virtual HRESULT STDMETHODCALLTYPE reservedSlot17() = 0;  // slot 17: never called, signature unknown
    virtual HRESULT STDMETHODCALLTYPE createConnectionStub(BSTR command, BSTR* reply, long* result) = 0;  // slot 18
    virtual HRESULT STDMETHODCALLTYPE setBinVariableSize(long variable, long size, long* result) = 0;     // slot 19
    virtual HRESULT STDMETHODCALLTYPE setBinVariableData(long variable, long offset, BSTR hexData,
                                                         long* result) = 0;               // slot 20
    virtual HRESULT STDMETHODCALLTYPE freeBinVariable(long variable, long* result) = 0;   // slot 21
    virtual HRESULT STDMETHODCALLTYPE manageProductData(BSTR command, long* result) = 0;  // slot 22
    virtual HRESULT STDMETHODCALLTYPE erasePart(BSTR command, long* result) = 0;          // slot 23
    virtual HRESULT STDMETHODCALLTYPE movePart(BSTR command, long* result) = 0;           // slot 24
};

struct IKlimora201011 : IKlimora200805 {
    virtual HRESULT STDMETHODCALLTYPE manageCalculationDatabase(BSTR command, BSTR* reply,
                                                                long* result) = 0;    // slot 25
    virtual HRESULT STDMETHODCALLTYPE selectProduct(BSTR command, long* result) = 0;  // slot 26
};

struct IKlimoraLatest : IKlimora201011 {
    virtual HRESULT STDMETHODCALLTYPE calculate(BSTR command, long* result) = 0;  // slot 27
};

}  // namespace KLIMCOMSRVLib
