#include "ServerObjects.h"

#include "KlimoraFace.h"

namespace bench::klimora {
namespace {

HRESULT QueryDrawing(REFIID id, void** object);
HRESULT QueryKlimora(REFIID id, void** object);

// Never destroyed: clients may hold on to them to the end of the process.
struct Drawing {
    Face<IDispatch> identity{"KlimComSrv.Drawing", QueryDrawing};
    Face<KLIMCOMSRVLib::IDrawing> drawing{"IDrawing", QueryDrawing};
};

struct Klimora {
    Face<IDispatch> identity{"KlimComSrv.Klimora", QueryKlimora};
    Face200805<KLIMCOMSRVLib::IKlimora200805> first{"IKlimora200805", QueryKlimora};
    Face201011<KLIMCOMSRVLib::IKlimora201011> second{"IKlimora201011", QueryKlimora};
    FaceLatest latest{"IKlimoraLatest", QueryKlimora};
};

Drawing& TheDrawing() {
    static Drawing* const instance = new Drawing;
    return *instance;
}

Klimora& TheKlimora() {
    static Klimora* const instance = new Klimora;
    return *instance;
}

bool IsIdentity(REFIID id) {
    return id == IID_IUnknown || id == IID_IDispatch;
}

HRESULT HandOut(IUnknown* face, void** object) {
    if (!object) return E_POINTER;
    *object = face;
    if (!face) return E_NOINTERFACE;
    face->AddRef();
    return S_OK;
}

HRESULT QueryDrawing(REFIID id, void** object) {
    IUnknown* face = nullptr;
    if (IsIdentity(id)) face = &TheDrawing().identity;
    if (id == KLIMCOMSRVLib::IID_IDrawing && TheServer().settings.hasDrawing) face = &TheDrawing().drawing;
    return HandOut(face, object);
}

HRESULT QueryKlimora(REFIID id, void** object) {
    const KlimoraServer& settings = TheServer().settings;
    IUnknown* face = nullptr;
    if (IsIdentity(id)) face = &TheKlimora().identity;
    if (id == KLIMCOMSRVLib::IID_IKlimora200805 && settings.has200805) face = &TheKlimora().first;
    if (id == KLIMCOMSRVLib::IID_IKlimora201011 && settings.has201011) face = &TheKlimora().second;
    if (id == KLIMCOMSRVLib::IID_IKlimoraLatest && settings.hasLatest) face = &TheKlimora().latest;
    return HandOut(face, object);
}

}  // namespace

IUnknown* DrawingObject() {
    return &TheDrawing().identity;
}
IUnknown* KlimoraObject() {
    return &TheKlimora().identity;
}

}  // namespace bench::klimora
