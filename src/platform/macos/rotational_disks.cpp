#include "platform/macos/rotational_disks.h"

#include "platform/macos/load_symbol.h"

#include <dlfcn.h>
#include <mach/mach.h>
#include <sys/stat.h>

#include <array>
#include <cstdlib>
#include <memory>
#include <string_view>

namespace tarvin::macos {

namespace {

// The types and constants of <CoreFoundation/CoreFoundation.h> and <IOKit/IOKitLib.h> that are
// used here: the frameworks are loaded on first use, so that the programs link without them.
using CfReference = const void*;
using IoObject = mach_port_t;
constexpr std::uint32_t cfUtf8 = 0x08000100;
constexpr std::uint32_t recursively = 1;  // kIORegistryIterateRecursively
constexpr std::uint32_t throughParents = 2;

class Frameworks final {
 public:
    Frameworks() {
        void* const core = ::dlopen(
            "/System/Library/Frameworks/CoreFoundation.framework/CoreFoundation", RTLD_LAZY);
        void* const kit = ::dlopen("/System/Library/Frameworks/IOKit.framework/IOKit", RTLD_LAZY);
        isComplete = core != nullptr && kit != nullptr &&
                     loadSymbol(core, "CFStringCreateWithCString", makeString) &&
                     loadSymbol(core, "CFDictionaryGetValue", valueOf) &&
                     loadSymbol(core, "CFDictionaryGetTypeID", dictionaryType) &&
                     loadSymbol(core, "CFStringGetTypeID", stringType) &&
                     loadSymbol(core, "CFGetTypeID", typeOf) &&
                     loadSymbol(core, "CFEqual", areEqual) &&
                     loadSymbol(core, "CFRelease", release) &&
                     loadSymbol(kit, "IOBSDNameMatching", matchingOf) &&
                     loadSymbol(kit, "IOServiceGetMatchingService", serviceOf) &&
                     loadSymbol(kit, "IORegistryEntrySearchCFProperty", property) &&
                     loadSymbol(kit, "IORegistryEntryGetParentEntry", parentOf) &&
                     loadSymbol(kit, "IORegistryEntryGetRegistryEntryID", numberOf) &&
                     loadSymbol(kit, "IOObjectConformsTo", conformsTo) &&
                     loadSymbol(kit, "IOObjectRelease", releaseObject);
    }

    bool isComplete = false;
    CfReference (*makeString)(CfReference allocator, const char* text,
                              std::uint32_t encoding) = nullptr;
    CfReference (*valueOf)(CfReference dictionary, CfReference key) = nullptr;
    unsigned long (*dictionaryType)() = nullptr;
    unsigned long (*stringType)() = nullptr;
    unsigned long (*typeOf)(CfReference object) = nullptr;
    unsigned char (*areEqual)(CfReference one, CfReference other) = nullptr;
    void (*release)(CfReference object) = nullptr;
    CfReference (*matchingOf)(mach_port_t port, std::uint32_t options, const char* name) = nullptr;
    IoObject (*serviceOf)(mach_port_t port, CfReference matching) = nullptr;  // takes `matching`
    CfReference (*property)(IoObject entry, const char* plane, CfReference key,
                            CfReference allocator, std::uint32_t options) = nullptr;
    kern_return_t (*parentOf)(IoObject entry, const char* plane, IoObject* parent) = nullptr;
    kern_return_t (*numberOf)(IoObject entry, std::uint64_t* number) = nullptr;
    int (*conformsTo)(IoObject object, const char* className) = nullptr;
    kern_return_t (*releaseObject)(IoObject object) = nullptr;
};

const Frameworks& frameworks() {
    static const Frameworks frameworks;
    return frameworks;
}

struct Release {
    void operator()(const void* object) const { frameworks().release(object); }
};
using CfPointer = std::unique_ptr<const void, Release>;

/// An object of the I/O registry; may be empty.
class Entry final {
 public:
    explicit Entry(IoObject object) : object_(object) {}
    Entry(const Entry&) = delete;
    Entry& operator=(const Entry&) = delete;
    ~Entry() { reset(0); }

    [[nodiscard]] IoObject get() const { return object_; }
    void reset(IoObject object) {
        if (object_ != 0) {
            frameworks().releaseObject(object_);
        }
        object_ = object;
    }

 private:
    IoObject object_;
};

CfPointer stringOf(const char* text) {
    return CfPointer(frameworks().makeString(nullptr, text, cfUtf8));
}

/// Whether the medium of the device under an entry says that it rotates.
bool rotates(const Entry& entry) {
    const CfPointer key = stringOf("Device Characteristics");
    const CfPointer found(frameworks().property(entry.get(), "IOService", key.get(), nullptr,
                                                recursively | throughParents));
    if (!found || frameworks().typeOf(found.get()) != frameworks().dictionaryType()) {
        return false;
    }
    const CfPointer typeKey = stringOf("Medium Type");
    const CfReference type = frameworks().valueOf(found.get(), typeKey.get());
    const CfPointer rotational = stringOf("Rotational");
    return type != nullptr && frameworks().typeOf(type) == frameworks().stringType() &&
           frameworks().areEqual(type, rotational.get()) != 0;
}

/// The number of the innermost driver of a disk above the entry: all its partitions and containers
/// have that one in common.
std::optional<std::uint64_t> driverOf(Entry& entry) {
    constexpr int deepest = 64;
    for (int level = 0; entry.get() != 0 && level < deepest; ++level) {
        if (frameworks().conformsTo(entry.get(), "IOBlockStorageDriver") != 0) {
            std::uint64_t number = 0;
            return frameworks().numberOf(entry.get(), &number) == KERN_SUCCESS
                       ? std::optional(number)
                       : std::nullopt;
        }
        IoObject parent = 0;
        if (frameworks().parentOf(entry.get(), "IOService", &parent) != KERN_SUCCESS) {
            break;
        }
        entry.reset(parent);
    }
    return std::nullopt;
}

}  // namespace

std::optional<std::uint64_t> rotationalDiskUnder(std::uint64_t device) {
    std::array<char, 64> name{};
    const bool isNamed = ::devname_r(static_cast<dev_t>(device), S_IFBLK, name.data(),
                                     static_cast<int>(name.size())) != nullptr;
    if (!isNamed || std::string_view(name.data()) == "??" || !frameworks().isComplete) {
        return std::nullopt;
    }
    // Port 0 is the main one. The service takes the matching dictionary.
    const CfReference matching = frameworks().matchingOf(0, 0, name.data());
    if (matching == nullptr) {
        return std::nullopt;
    }
    Entry entry(frameworks().serviceOf(0, matching));
    return entry.get() != 0 && rotates(entry) ? driverOf(entry) : std::nullopt;
}

}  // namespace tarvin::macos
