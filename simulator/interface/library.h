// A library that was injected into the simulated process.
#pragma once
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace sim {

/// One build of a library, loaded for good.
class Library {
  public:
    virtual ~Library() = default;
    Library(const Library&) = delete;

    /// The names of the classes that it defined, sorted.
    const std::vector<std::string>& classes() const { return classes_; }

    /// What it exports under a name as C writes it, or null. `OBJC_CLASS_$_X` and `OBJC_METACLASS_$_X` of its
    /// own classes are the runtime's classes.
    void* symbol(std::string_view name) const;

    /// The processor time that its initialisers took, in seconds.
    double initialiser_seconds() const { return initialiser_seconds_; }

    /// Where it begins in memory, if the address lies in it and the host's linker does not know that; else
    /// null.
    virtual const void* start_if_it_holds(const void* address) const = 0;

    /// Whether other libraries ask for its symbols under that name.
    virtual bool is_installed_as(std::string_view install_name) const = 0;

  protected:
    Library(std::vector<std::string> classes, double initialiser_seconds)
        : classes_(std::move(classes)),
          initialiser_seconds_(initialiser_seconds) {}

  private:
    virtual void* exported(const std::string& name) const = 0;
    std::vector<std::string> classes_;
    double initialiser_seconds_;
};

/// Loads the library at a path of the host as the injection framework does: its classes are registered, then
/// its initialisers run. ELF and Mach-O differ in the file's first bytes. Throws a Refusal; an Objective-C
/// exception of an initialiser comes through.
std::unique_ptr<Library> load_library(const std::string& host_path);

/// The two kinds. `contents` are the file's.
std::unique_ptr<Library> load_elf(const std::string& host_path, std::string_view contents);
std::unique_ptr<Library> load_macho(const std::string& host_path, std::string contents);

/// The library that others ask for under that name; null when none was loaded, and for the system's own.
/// Whoever loaded it keeps it for good.
const Library* library_installed_as(std::string_view install_name);

/// The library that was loaded from a path of the host; null when none was.
const Library* loaded_from(const std::string& host_path);

/// Where the library begins that the address lies in; null for code of the host's own kind.
const void* start_of_library_at(const void* address);

/// What a file of the host holds. Throws a Refusal.
std::string contents_of(const std::string& host_path);

/// The processor time that the process has taken so far, in seconds.
double processor_seconds();

/// The processor time that the work takes, in seconds.
template <class Work>
double processor_seconds_of(Work work) {
    processor_seconds();  // the first time that it is asked, the clock itself takes microseconds
    const double before = processor_seconds();
    work();
    return processor_seconds() - before;
}

/// The names of all classes that the runtime knows, sorted.
std::vector<std::string> class_names();

}  // namespace sim
