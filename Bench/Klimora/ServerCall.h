// One call of a client at the server's border: journal, planned failure, refusal. Work that refuses puts its code into
// the result argument and its sentence where getLastErrorText finds it. A planned code that is a failing HRESULT is
// returned as such with the outputs untouched; any other code, and one between -65536 and -1, goes into the result
// argument as the server's own would.
// Contract: rows K1 to K5.
#pragma once

#include <windows.h>
#include <oleauto.h>

#include <functional>
#include <string>

#include "BenchControl.h"
#include "BenchTexts.h"

namespace bench::klimora {

// Runs `work`, which does the call and returns the outputs as the journal shows them. `clearOutputs` gives the outputs
// their empty values before.
HRESULT AnswerCall(const std::string& name, const std::string& arguments, long* result,
                   const std::function<void()>& clearOutputs, const std::function<std::string()>& work);
// For the methods without a result argument: any planned failure is an HRESULT.
HRESULT AnswerPlainCall(const std::string& name, bool outputsGiven, const std::function<std::string()>& work);

std::string Quoted(BSTR text);
using bench::Quoted;

}  // namespace bench::klimora
