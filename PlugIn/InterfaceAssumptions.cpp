// Compile-time checks of the declarations that a build for AutoCAD takes from Klimora's own files. Without them a call
// would compile, and pass a converted value, when a parameter is narrower or wider than the module assumes. The order
// of an interface's methods and the exports of a library cannot be checked here.
#include <windows.h>

#include <type_traits>
#include <utility>

#include "KLIMCOMSRVLib.h"
#include "KlimoraPluginsStatisticsWrapper.h"
#include "kbase.h"

#if defined(SORVIK_REFUSE_PLACEHOLDERS) && defined(KLIMORA_PLACEHOLDER_INTERFACES)
#error "KLIMORA_INCLUDE leads to the placeholder interface identifiers of Platform/klimora"
#endif

using namespace KLIMCOMSRVLib;

namespace {

template <class Interface, class... Parameters>
using Method = HRESULT (STDMETHODCALLTYPE Interface::*)(Parameters...);

template <class... Parameters>
using Of200805 = Method<IKlimora200805, Parameters...>;

// ---- Automation server -----------------------------------------------------------------------------------------

static_assert(std::is_same_v<std::remove_cv_t<decltype(IID_IDrawing)>, IID>);
static_assert(std::is_same_v<std::remove_cv_t<decltype(IID_IKlimora200805)>, IID>);
static_assert(std::is_same_v<std::remove_cv_t<decltype(IID_IKlimora201011)>, IID>);
static_assert(std::is_same_v<std::remove_cv_t<decltype(IID_IKlimoraLatest)>, IID>);
static_assert(std::is_base_of_v<IDispatch, IDrawing>);
static_assert(std::is_base_of_v<IDispatch, IKlimora200805>);
static_assert(std::is_base_of_v<IDispatch, IKlimora201011>);
static_assert(std::is_base_of_v<IDispatch, IKlimoraLatest>);

static_assert(std::is_same_v<decltype(&IKlimora200805::getVersion), Of200805<long*>>);
static_assert(std::is_same_v<decltype(&IKlimora200805::getLastErrorText), Of200805<BSTR*>>);
static_assert(std::is_same_v<decltype(&IKlimora200805::getPartAtt), Of200805<BSTR, BSTR, BSTR*, long*>>);
static_assert(std::is_same_v<decltype(&IKlimora200805::setPartAtt), Of200805<BSTR, BSTR, BSTR, long*>>);
static_assert(std::is_same_v<decltype(&IKlimora200805::getPartAttDouble), Of200805<BSTR, BSTR, double*, long*>>);
static_assert(std::is_same_v<decltype(&IKlimora200805::setPartAttDouble), Of200805<BSTR, BSTR, double, long*>>);
static_assert(
    std::is_same_v<decltype(&IKlimora200805::getPartAttPoint), Of200805<BSTR, BSTR, double*, double*, double*, long*>>);
static_assert(
    std::is_same_v<decltype(&IKlimora200805::setPartAttPoint), Of200805<BSTR, BSTR, double, double, double, long*>>);
static_assert(std::is_same_v<decltype(&IKlimora200805::createPart), Of200805<BSTR, BSTR*, long*>>);
static_assert(std::is_same_v<decltype(&IKlimora200805::selectPart), Of200805<BSTR, BSTR*, long*>>);
static_assert(std::is_same_v<decltype(&IKlimora200805::createConnectionStub), Of200805<BSTR, BSTR*, long*>>);
static_assert(std::is_same_v<decltype(&IKlimora200805::setBinVariableSize), Of200805<long, long, long*>>);
static_assert(std::is_same_v<decltype(&IKlimora200805::setBinVariableData), Of200805<long, long, BSTR, long*>>);
static_assert(std::is_same_v<decltype(&IKlimora200805::freeBinVariable), Of200805<long, long*>>);
static_assert(std::is_same_v<decltype(&IKlimora200805::manageProductData), Of200805<BSTR, long*>>);
static_assert(std::is_same_v<decltype(&IKlimora200805::erasePart), Of200805<BSTR, long*>>);
static_assert(std::is_same_v<decltype(&IKlimora200805::movePart), Of200805<BSTR, long*>>);
static_assert(
    std::is_same_v<decltype(&IKlimora201011::manageCalculationDatabase), Method<IKlimora201011, BSTR, BSTR*, long*>>);
static_assert(std::is_same_v<decltype(&IKlimora201011::selectProduct), Method<IKlimora201011, BSTR, long*>>);
static_assert(std::is_same_v<decltype(&IKlimoraLatest::calculate), Method<IKlimoraLatest, BSTR, long*>>);

// ---- Record database -------------------------------------------------------------------------------------------

static_assert(std::is_signed_v<KB_HANDLE> && sizeof(KB_HANDLE) == 2);
static_assert(std::is_pointer_v<KB_RECORD>);
static_assert(sizeof(KB_CLASSID) == 8);

static_assert(std::is_same_v<decltype(ddk_opendatabase), KB_HANDLE(const char*, int, int)>);
static_assert(std::is_same_v<decltype(ddk_classsymboltoID), int(KB_HANDLE, const char*, KB_CLASSID*)>);
static_assert(std::is_same_v<decltype(ddk_releasedatabase), void(KB_HANDLE)>);
static_assert(std::is_same_v<decltype(kbopendatabase), KB_HANDLE(const char*, const char*, int)>);
static_assert(std::is_same_v<decltype(kbclosedatabase), void(KB_HANDLE)>);
static_assert(std::is_same_v<decltype(kbcreaterec), KB_RECORD(KB_HANDLE, const KB_CLASSID*, const char*)>);
static_assert(std::is_same_v<decltype(kbdeleterec), short(KB_HANDLE, const KB_CLASSID*, const char*)>);
static_assert(std::is_same_v<decltype(kbfindrec), KB_RECORD(KB_HANDLE, const char*, const char*, int)>);
static_assert(std::is_same_v<decltype(kbinsertatt), short(KB_HANDLE, KB_RECORD*, short, const void*, short)>);
static_assert(std::is_same_v<decltype(kbsaverec), short(KB_HANDLE, KB_RECORD)>);
static_assert(std::is_same_v<decltype(kbreleaserec), void(KB_RECORD)>);
static_assert(std::is_same_v<decltype(kbsetwarningmode), void(int)>);

// ---- Usage statistics ------------------------------------------------------------------------------------------

using Statistics = KlimoraPluginsStatisticsWrapper;
// Braces reject a parameter that is narrower than the argument.
static_assert(std::is_class_v<decltype(Statistics{std::declval<int>(), std::declval<const wchar_t*>(),
                                                  std::declval<const wchar_t*>()})>);
static_assert(
    std::is_same_v<decltype(&Statistics::AddInsertStatistics), void (Statistics::*)(const wchar_t*, PluginStat*)>);
static_assert(std::is_same_v<decltype(&Statistics::FlushStatistics), void (Statistics::*)()>);
static_assert(std::is_same_v<decltype(&Statistics::CloseStatistics), void (Statistics::*)()>);

}  // namespace
