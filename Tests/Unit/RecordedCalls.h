// Records this program's calls of Windows or the C runtime in order, and replaces their results:
//   RecordedCalls calls({{window, "window"}});                   // handles with a name from the start
//   calls.Record("OpenClipboard", OpenClipboard);                // calls the real function
//   calls.Return("EmptyClipboard", EmptyClipboard, FALSE);       // only returns FALSE
//   calls.Return("RegOpenKeyExA", RegOpenKeyExA, 5, 2, 1);       // calls it twice, returns 5 once, calls it again
//   calls.Record("GetTempPathA", GetTempPathA, [](DWORD size, char* path) { ... });
// A line is the name and the arguments: numbers, unsigned ones in hexadecimal, constant strings in quotes, a handle by
// its name, "null", and "&" for any other pointer. A handle that a recorded call returns, as its result or through a
// pointer, gets that call's name. Only calls of the thread that created this object are recorded, until its destructor.
#pragma once

#include <windows.h>

#include <array>
#include <cstdio>
#include <functional>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "ImportPatch.h"

class RecordedCalls {
    static constexpr int kAlways = 1 << 30;

 public:
    explicit RecordedCalls(std::map<const void*, std::string> names = {}) : names_(std::move(names)) {}
    // Removes the last patch first, because a function may be recorded again on top.
    ~RecordedCalls() {
        while (!patches_.empty())
            patches_.pop_back();
    }
    RecordedCalls(const RecordedCalls&) = delete;
    RecordedCalls& operator=(const RecordedCalls&) = delete;

    template <class R, class... A>
    void Record(const char* name, R (*)(A...), std::common_type_t<std::function<R(A...)>> fake = {}) {
        const int realCalls = fake ? 0 : kAlways;
        patches_.push_back(std::make_shared<Patch<R, A...>>(*this, name, std::move(fake), realCalls, kAlways));
    }
    template <class R, class... A>
    void Return(const char* name, R (*)(A...), std::common_type_t<R> result, int realCalls = 0,
                int fakeCalls = kAlways) {
        const auto fake = [result](A...) { return result; };
        patches_.push_back(std::make_shared<Patch<R, A...>>(*this, name, fake, realCalls, fakeCalls));
    }
    void Name(const void* handle, const char* name) {
        if (handle) names_[handle] = name;
    }

    // Returns and removes the recorded lines, each with its line end.
    std::string Take() { return std::exchange(lines_, std::string()); }

 private:
    // Functions of one signature share four entries, so at most four of them can be recorded at the same time.
    template <class R, class... A>
    class Patch {
     public:
        Patch(RecordedCalls& calls, const char* name, std::function<R(A...)> fake, int realCalls, int fakeCalls)
            : calls_(calls),
              name_(name),
              fake_(std::move(fake)),
              realCalls_(realCalls),
              fakeCalls_(fakeCalls),
              entry_(TakeEntry()),
              patch_(name, kEntries[entry_]) {}
        ~Patch() { users_[entry_] = nullptr; }

     private:
        template <size_t Entry>
        static R Enter(A... arguments) {
            return users_[Entry]->Call(arguments...);
        }
        static constexpr std::array<R (*)(A...), 4> kEntries = {Enter<0>, Enter<1>, Enter<2>, Enter<3>};
        static inline std::array<Patch*, 4> users_ = {};

        size_t TakeEntry() {
            for (size_t i = 0; i < users_.size(); ++i) {
                if (users_[i]) continue;
                users_[i] = this;
                return i;
            }
            throw std::logic_error("too many functions of this signature are recorded at once");
        }

        R Call(A... arguments) {
            R (*const real)(A...) = patch_.original<R(A...)>();
            if (calls_.busy_ || GetCurrentThreadId() != calls_.thread_) return real(arguments...);
            const DWORD error = GetLastError();
            calls_.busy_ = true;
            calls_.lines_ += name_;
            ((calls_.lines_ += ' ' + calls_.Shown(arguments)), ...);
            calls_.lines_ += '\n';
            calls_.busy_ = false;
            SetLastError(error);
            const bool isReal = realCalls_ > 0 || fakeCalls_ <= 0;
            --(isReal ? realCalls_ : fakeCalls_);
            if constexpr (std::is_void_v<R>) {
                isReal ? real(arguments...) : fake_(arguments...);
            } else {
                const R result = isReal ? real(arguments...) : fake_(arguments...);
                if constexpr (std::is_pointer_v<R>) calls_.Name(result, name_);
                (calls_.NameOutput(arguments, name_), ...);
                return result;
            }
        }

        RecordedCalls& calls_;
        const char* const name_;
        const std::function<R(A...)> fake_;
        int realCalls_;  // calls left before the fake's
        int fakeCalls_;
        const size_t entry_;
        const ImportPatch patch_;
    };

    template <class T>
    std::string Shown(T value) const {
        if constexpr (std::is_same_v<T, const char*>) {
            if (value && IS_INTRESOURCE(value)) return std::to_string(reinterpret_cast<ULONG_PTR>(value));
            return value ? '"' + std::string(value) + '"' : "null";
        } else if constexpr (std::is_pointer_v<T> && !std::is_function_v<std::remove_pointer_t<T>>) {
            const auto known = names_.find(value);
            return known != names_.end() ? known->second : value ? "&" : "null";
        } else if constexpr (std::is_unsigned_v<T>) {
            char text[20];
            std::snprintf(text, sizeof text, "0x%llX", static_cast<unsigned long long>(value));
            return text;
        } else if constexpr (std::is_arithmetic_v<T>) {
            return std::to_string(value);
        } else {
            return "&";
        }
    }
    // A pointer to a handle.
    template <class T>
    void NameOutput(T* place, const char* name) {
        if constexpr (std::is_pointer_v<T> && !std::is_const_v<T>) {
            if (place) Name(*place, name);
        }
    }
    template <class T>
    void NameOutput(T, const char*) {}

    const DWORD thread_ = GetCurrentThreadId();
    bool busy_ = false;
    std::string lines_;
    std::map<const void*, std::string> names_;
    std::vector<std::shared_ptr<void>> patches_;
};
