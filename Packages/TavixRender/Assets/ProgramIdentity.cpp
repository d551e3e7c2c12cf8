#include "TavixRender/Assets/ProgramIdentity.h"

#include "TavixBase/ContentHash.h"
#include "TavixCore/Support/TavixVersion.h"
#include "TavixPlatform/Media/LateLibrary.h"
#include "TavixPlatform/Text/FontBook.h"
#include "TavixRender/Assets/FileIdentity.h"
#include "TavixRender/Assets/ResourceFolders.h"

#include <elf.h>
#include <link.h>
#include <set>
#include <string>
#include <string_view>

namespace tavix {

namespace {

namespace fs = std::filesystem;

std::string described(const fs::path& path) {
    std::string said = path.string();
    if (const auto file = FileIdentity::of(path))
        for (const auto number :
            {std::int64_t(file->device), std::int64_t(file->node), file->sizeBytes, file->changedNs})
            said += ' ' + std::to_string(number);
    return said + '\n';
}

// The linker's own name for what it built ("System V Application Binary Interface", notes; GNU's is 3);
// empty where there is none.
std::string_view buildIdOf(const dl_phdr_info& object) {
    constexpr auto padded = [](std::size_t size) { return (size + 3) / 4 * 4; };
    for (int i = 0; i < object.dlpi_phnum; ++i) {
        const ElfW(Phdr)& part = object.dlpi_phdr[i];
        if (part.p_type != PT_NOTE) continue;
        // NOLINTNEXTLINE(performance-no-int-to-ptr): the linker tells addresses as numbers
        const char* at = reinterpret_cast<const char*>(object.dlpi_addr + part.p_vaddr);
        const char* const end = at + part.p_memsz;
        while (end - at >= static_cast<std::ptrdiff_t>(sizeof(ElfW(Nhdr)))) {
            const auto* note = reinterpret_cast<const ElfW(Nhdr)*>(at);
            const char* name = at + sizeof *note;
            const char* content = name + padded(note->n_namesz);
            const bool isGnu = std::string_view(name, note->n_namesz) == std::string_view("GNU\0", 4);
            if (note->n_type == NT_GNU_BUILD_ID && isGnu) return {content, note->n_descsz};
            at = content + padded(note->n_descsz);
        }
    }
    return {};
}

int addObject(dl_phdr_info* object, std::size_t, void* to) {
    auto& objects = *static_cast<std::set<std::string>*>(to);
    const std::string_view name = object->dlpi_name;
    if (name.find("linux-vdso") != std::string_view::npos) return 0;   // of the kernel, and only its clock
    if (const std::string_view id = buildIdOf(*object); !id.empty())
        objects.emplace(id);
    else
        objects.insert(described(name.empty() ? fs::path("/proc/self/exe") : fs::path(name)));
    return 0;
}

Digest identity() {
    ContentHash hash;
    hash.add(TavixVersion::current);
    // Some are loaded when they are needed first, and so in any order.
    media::loadLateLibraries();
    std::set<std::string> objects;
    dl_iterate_phdr(addObject, &objects);
    for (const std::string& object : objects) hash.add(object);
    for (const fs::path& file : ResourceFolders::files()) hash.add(described(file));
    for (const fs::path& file : text::FontBook().files()) hash.add(described(file));
#if defined(__x86_64__)
    hash.add(__builtin_cpu_supports("avx512bw") ? "3" : __builtin_cpu_supports("avx2") ? "2" : "1");
#endif
    return hash.digest();
}

}   // namespace

Digest programIdentity() {
    static const Digest digest = identity();
    return digest;
}

}   // namespace tavix
