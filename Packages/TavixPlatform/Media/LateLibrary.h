// Functions of shared libraries that are loaded when the first of them is called. FFmpeg and libheif bring
// some ninety others with them, which took 17 ms of every start, and most commands read no film and write
// none.
#pragma once

#include <atomic>
#include <type_traits>
#include <utility>

namespace tavix::media {

class LateLibrary {
public:
    // The file as the loader searches for it: "libavformat.so.59". The package is Debian's that has it.
    constexpr LateLibrary(const char* file, const char* package) : file_(file), package_(package) {}

    // The address of a function of it or of a library that it needs. Throws MediaFault, which names the file
    // and the package, where there is none.
    void* find(const char* function) const;
    // Whether it could be loaded.
    bool load() const noexcept;

private:
    const char* file_;
    const char* package_;
};

// Called like the function of this type. A name of this kind hides the library's own within our namespace.
template <class Function> class LateFunction {
public:
    constexpr LateFunction(const LateLibrary& library, const char* name) : library_(&library), name_(name) {}

    template <class... Arguments> decltype(auto) operator()(Arguments&&... arguments) const {
        void* address = found_.load(std::memory_order_acquire);
        if (!address) found_.store(address = library_->find(name_), std::memory_order_release);
        return reinterpret_cast<Function*>(address)(std::forward<Arguments>(arguments)...);
    }

private:
    const LateLibrary* library_;
    const char* name_;
    mutable std::atomic<void*> found_ = nullptr;
};

// Loads what films and HEIC pictures are read with, where it is installed, so that it counts among the
// libraries of the program from here on.
void loadLateLibraries() noexcept;

}   // namespace tavix::media

// In tavix::media: `name` of a library, to be called as if it were linked.
#define TAVIX_LATE_FUNCTION(library, name)                                                                   \
    inline constinit const LateFunction<decltype(::name)> name { library, #name }
