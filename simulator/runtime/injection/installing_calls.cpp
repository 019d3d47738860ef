#include "runtime/injection/installing_calls.h"

namespace sim {
namespace {

std::deque<InstallingCall>& calls() {
    static auto* made =
        new std::deque<InstallingCall>;  // never destroyed: readable until the process has ended
    return *made;
}

bool adding_categories = false;

}  // namespace

const char* InstallingCall::class_name() const { return owner ? class_getName(owner) : nullptr; }
bool InstallingCall::on_class() const { return owner && class_isMetaClass(owner); }
const char* InstallingCall::name() const { return function ? function : sel_getName(selector); }

void record(const InstallingCall& call) { calls().push_back(call); }

AddingCategories::AddingCategories() { adding_categories = true; }
AddingCategories::~AddingCategories() { adding_categories = false; }
bool AddingCategories::now() { return adding_categories; }

const std::deque<InstallingCall>& installing_calls() { return calls(); }

}  // namespace sim
