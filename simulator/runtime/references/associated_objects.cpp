#include "runtime/references/associated_objects.h"

#include <mutex>
#include <unordered_map>
#include <utility>

#include "objc/send.h"
#include "runtime/exported.h"
#include "runtime/not_modelled.h"

namespace sim {
namespace {

enum Policy : uintptr_t {
    policy_assign = 0,
    policy_retain_nonatomic = 1,
    policy_copy_nonatomic = 3,
    policy_retain = 0x301,
    policy_copy = 0x303,
};

/// A value with what its policy asks for. Movable, so that it can be let go of outside the lock: a value's
/// -dealloc may come back here.
class Association {
  public:
    Association() = default;
    Association(id value, uintptr_t policy) : value_(value), policy_(policy) {
        switch (policy) {
            case policy_assign: break;
            case policy_retain_nonatomic:
            case policy_retain: objc_retain(value_); break;
            case policy_copy_nonatomic:
            case policy_copy: value_ = objc::send<"copy", id>(value_); break;
            default: not_modelled("objc_setAssociatedObject", "the policy is unknown");
        }
    }
    Association(Association&& other) noexcept { *this = std::move(other); }
    Association& operator=(Association&& other) noexcept {
        std::swap(value_, other.value_);
        std::swap(policy_, other.policy_);
        return *this;
    }
    ~Association() {
        if (policy_ != policy_assign) objc_release(value_);
    }

    id value() const { return value_; }
    /// Kept alive for the caller even if another thread replaces it.
    bool is_atomic() const { return policy_ == policy_retain || policy_ == policy_copy; }

  private:
    id value_ = nullptr;
    uintptr_t policy_ = policy_assign;
};

using Associations = std::unordered_map<const void*, Association>;

// Never destroyed: objects go until the very end of the process.
struct AssociationTable {
    std::mutex lock;
    std::unordered_map<id, Associations> by_owner;

    static AssociationTable& get() {
        static auto* table = new AssociationTable;
        return *table;
    }
};

}  // namespace

void drop_associated_objects(id owner) {
    AssociationTable& table = AssociationTable::get();
    Associations dropped;
    {
        std::lock_guard guard(table.lock);
        if (table.by_owner.empty()) return;
        auto found = table.by_owner.find(owner);
        if (found == table.by_owner.end()) return;
        dropped = std::move(found->second);
        table.by_owner.erase(found);
    }
}

}  // namespace sim

SIM_EXPORTED void objc_setAssociatedObject(id owner, const void* key, id value, uintptr_t policy) {
    if (!owner) return;
    auto& table = sim::AssociationTable::get();
    sim::Association association(value, policy);
    std::lock_guard guard(table.lock);
    auto owned = table.by_owner.try_emplace(owner).first;
    auto place = owned->second.try_emplace(key).first;
    std::swap(place->second, association);
    if (!value) owned->second.erase(place);
    if (owned->second.empty()) table.by_owner.erase(owned);
}

SIM_EXPORTED id objc_getAssociatedObject(id owner, const void* key) {
    auto& table = sim::AssociationTable::get();
    id value;
    bool retained;
    {
        std::lock_guard guard(table.lock);
        auto owned = table.by_owner.find(owner);
        if (owned == table.by_owner.end()) return nullptr;
        auto found = owned->second.find(key);
        if (found == owned->second.end()) return nullptr;
        value = found->second.value();
        retained = found->second.is_atomic();
        if (retained) objc_retain(value);
    }
    return retained ? objc_autorelease(value) : value;
}
