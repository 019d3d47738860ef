// Catching: the personality of device code's frames, which finds the handler, and what handlers call.
// Throwing is libobjc's.
#include "runtime/exceptions.h"

#include <cxxabi.h>
#include <unwind.h>

#include <cstdlib>
#include <cstring>
#include <exception>
#include <map>
#include <string>
#include <vector>

#include "runtime/encoded_bytes.h"
#include "runtime/exported.h"

extern "C" {
extern const sim::CaughtType OBJC_EHTYPE_id;
extern const void* const objc_ehtype_vtable[8];

/// The type of `@catch (id)`, known by its address.
[[gnu::visibility("default")]] const sim::CaughtType OBJC_EHTYPE_id{nullptr, "id", nullptr};
/// The functions of all types, which nothing calls.
[[gnu::visibility("default")]] const void* const objc_ehtype_vtable[8]{};
}

namespace sim {
namespace {

constexpr uint64_t of_objc = 0x474e55434f424a43;  // "GNUCOBJC": thrown by libobjc

bool is_of_objc(const _Unwind_Exception& exception) { return exception.exception_class == of_objc; }

/// libobjc puts it behind the header.
id object_of(const _Unwind_Exception& exception) { return *reinterpret_cast<const id*>(&exception + 1); }

bool catches(const CaughtType* type, const _Unwind_Exception& exception) {
    if (!type) return true;  // @finally, @catch (...)
    if (!is_of_objc(exception)) return false;
    if (type == &OBJC_EHTYPE_id) return true;
    id object = object_of(exception);
    for (Class each = object ? object->isa : nullptr; each; each = class_getSuperclass(each))
        if (std::strcmp(class_getName(each), type->class_name) == 0) return true;
    return false;
}

/// What a frame does about an exception: where it goes on, and with which handler, 0 for a clean-up.
struct Landing {
    enum { passes, cleans_up, catches } kind = passes;
    uintptr_t place = 0;
    int64_t handler = 0;
};

/// A function's language-specific data area: its call sites, their landing pads and what these catch.
class Lsda {
  public:
    Lsda(const uint8_t* table, uintptr_t function) : reader_(table), landings_(function) {
        if (const uint8_t encoding = reader_.byte(); encoding != DW_EH_PE_omit)
            landings_ = reader_.pointer(encoding);
        types_encoding_ = reader_.byte();
        if (types_encoding_ != DW_EH_PE_omit) {
            const uint64_t distance = reader_.unsigned_number();
            types_ = reader_.at() + distance;
        }
        calls_encoding_ = reader_.byte();
        const uint64_t size = reader_.unsigned_number();
        actions_ = reader_.at() + size;
    }

    /// For the call at an offset from the function's start. A call that is not in the table must not throw.
    Landing landing(uintptr_t offset, const _Unwind_Exception& exception, bool may_catch) {
        while (reader_.at() < actions_) {
            const uintptr_t start = reader_.pointer(calls_encoding_), size = reader_.pointer(calls_encoding_);
            const uintptr_t landing = reader_.pointer(calls_encoding_);
            const uint64_t action = reader_.unsigned_number();
            if (offset < start || offset - start >= size) continue;
            if (!landing) return {};
            return chosen(landings_ + landing, action, exception, may_catch);
        }
        std::terminate();
    }

  private:
    Landing chosen(uintptr_t place, uint64_t action, const _Unwind_Exception& exception, bool may_catch) {
        if (!action) return {Landing::cleans_up, place, 0};
        bool cleans_up = false;
        for (const uint8_t* row = actions_ + action - 1;;) {
            EncodedBytes reader(row);
            const int64_t filter = reader.signed_number();
            const uint8_t* next = reader.at();
            if (filter < 0) not_modelled("__objc_personality_v0", "an exception specification");
            if (filter == 0) cleans_up = true;
            if (filter > 0 && may_catch && catches(type(filter), exception))
                return {Landing::catches, place, filter};
            const int64_t distance = reader.signed_number();
            if (!distance) break;
            row = next + distance;
        }
        return cleans_up ? Landing{Landing::cleans_up, place, 0} : Landing{};
    }

    const CaughtType* type(int64_t filter) const {
        const auto size = static_cast<int64_t>(EncodedBytes::size_of(types_encoding_));
        return reinterpret_cast<const CaughtType*>(
            EncodedBytes(types_ - filter * size).pointer(types_encoding_));
    }

    EncodedBytes reader_;
    uintptr_t landings_;
    uint8_t types_encoding_, calls_encoding_;
    const uint8_t *types_ = nullptr, *actions_;
};

Landing landing_in(_Unwind_Context* frame, const _Unwind_Exception& exception, bool may_catch) {
    const auto* table = reinterpret_cast<const uint8_t*>(_Unwind_GetLanguageSpecificData(frame));
    if (!table) return {};
    int at_instruction = 0;
    const uintptr_t address = _Unwind_GetIPInfo(frame, &at_instruction) - (at_instruction ? 0 : 1);
    const uintptr_t function = _Unwind_GetRegionStart(frame);
    return Lsda(table, function).landing(address - function, exception, may_catch);
}

/// An exception that a handler is at work on. C++ exceptions are left to the C++ runtime.
struct Caught {
    _Unwind_Exception* exception;  ///< null for one of C++
    bool is_thrown_again = false;
};

std::vector<Caught>& caught() {
    static thread_local std::vector<Caught> stack;
    return stack;
}

}  // namespace

const CaughtType* caught_type(std::string_view class_name) {
    static auto& types = *new std::map<std::string, CaughtType, std::less<>>;
    if (const auto known = types.find(class_name); known != types.end()) return &known->second;
    std::string name(class_name);
    Class type = objc_lookUpClass(name.c_str());
    if (!type) return nullptr;
    return &types.emplace(std::move(name), CaughtType{objc_ehtype_vtable + 2, class_getName(type), type})
                .first->second;
}

}  // namespace sim

SIM_EXPORTED _Unwind_Reason_Code __objc_personality_v0(int version, _Unwind_Action actions, uint64_t,
                                                       _Unwind_Exception* exception, _Unwind_Context* frame) {
    using sim::Landing;
    if (version != 1) return _URC_FATAL_PHASE1_ERROR;
    const Landing landing = sim::landing_in(frame, *exception, !(actions & _UA_FORCE_UNWIND));
    if (actions & _UA_SEARCH_PHASE)
        return landing.kind == Landing::catches ? _URC_HANDLER_FOUND : _URC_CONTINUE_UNWIND;
    if (landing.kind == Landing::passes) return _URC_CONTINUE_UNWIND;
    _Unwind_SetGR(frame, __builtin_eh_return_data_regno(0), reinterpret_cast<uintptr_t>(exception));
    _Unwind_SetGR(frame, __builtin_eh_return_data_regno(1), static_cast<uintptr_t>(landing.handler));
    _Unwind_SetIP(frame, landing.place);
    return _URC_INSTALL_CONTEXT;
}

SIM_EXPORTED id objc_begin_catch(void* thrown) {
    auto* exception = static_cast<_Unwind_Exception*>(thrown);
    const bool ours = sim::is_of_objc(*exception);
    if (!ours) abi::__cxa_begin_catch(thrown);
    sim::caught().push_back({ours ? exception : nullptr});
    return ours ? sim::object_of(*exception) : nullptr;
}

SIM_EXPORTED void objc_end_catch() {
    const auto [exception, is_thrown_again] = sim::caught().back();
    sim::caught().pop_back();
    if (!exception)
        abi::__cxa_end_catch();
    else if (!is_thrown_again)
        _Unwind_DeleteException(exception);
}

/// Throws again what the innermost handler caught; the handler is left by its clean-up.
SIM_EXPORTED void objc_exception_rethrow() {
    auto& innermost = sim::caught().back();
    if (!innermost.exception) abi::__cxa_rethrow();
    innermost.is_thrown_again = true;
    _Unwind_Resume_or_Rethrow(innermost.exception);
    std::terminate();  // no one catches it
}

/// Where an exception ends up that must not leave a function.
SIM_EXPORTED void objc_terminate() { std::terminate(); }
