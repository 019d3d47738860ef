// Linked to an image that counts what runs: it begins to count before the image's own initialisers run, which
// the runtime's own start would follow. A process that is ended later has counted up to then.
extern "C" {
void __llvm_profile_initialize();
// Who defines it starts the runtime himself.
[[gnu::visibility("hidden")]] int __llvm_profile_runtime = 0;
}

namespace {

[[gnu::constructor(101)]] void begin_to_count() { __llvm_profile_initialize(); }

}  // namespace
