#include "platform/linux/network/GioProxySettings.h"

#include <dlfcn.h>

#include <array>
#include <string>
#include <utility>

namespace velmora {
namespace {

constexpr std::array<const char*, 4> kSchemas = {"org.gnome.system.proxy", "org.gnome.system.proxy.http",
                                                 "org.gnome.system.proxy.https",
                                                 "org.gnome.system.proxy.socks"};
constexpr std::array<const char*, 4> kKeys = {"mode", "host", "host", "host"};

}  // namespace

/// The few functions that are used, and the settings objects, which read the stored values anew each time.
struct GioProxySettings::Library {
    using Pointer = void*;
    Pointer (*defaultSource)() = nullptr;
    Pointer (*lookup)(Pointer source, const char* identifier, int recursive) = nullptr;
    int (*hasKey)(Pointer schema, const char* key) = nullptr;
    void (*unrefSchema)(Pointer schema) = nullptr;
    Pointer (*newSettings)(const char* identifier) = nullptr;
    char* (*getString)(Pointer settings, const char* key) = nullptr;
    void (*unref)(Pointer object) = nullptr;
    void (*free)(Pointer memory) = nullptr;
    std::array<Pointer, kSchemas.size()> settings{};

    ~Library() {
        for (const Pointer object : settings) {
            if (object) unref(object);
        }
    }

    template <typename Function>
    static bool find(void* handle, const char* name, Function& function) {
        function = reinterpret_cast<Function>(::dlsym(handle, name));
        return function != nullptr;
    }

    bool load() {
        // Never closed: the library's types cannot be registered twice.
        void* const handle = ::dlopen("libgio-2.0.so.0", RTLD_LAZY | RTLD_LOCAL);
        return handle && find(handle, "g_settings_schema_source_get_default", defaultSource) &&
               find(handle, "g_settings_schema_source_lookup", lookup) &&
               find(handle, "g_settings_schema_has_key", hasKey) &&
               find(handle, "g_settings_schema_unref", unrefSchema) &&
               find(handle, "g_settings_new", newSettings) &&
               find(handle, "g_settings_get_string", getString) && find(handle, "g_object_unref", unref) &&
               find(handle, "g_free", free);
    }

    /// The library ends the process for a schema or a key that is not there, so each is looked for first.
    bool openSettings() {
        const Pointer source = defaultSource();
        if (!source) return false;
        for (std::size_t index = 0; index < kSchemas.size(); ++index) {
            const Pointer schema = lookup(source, kSchemas[index], 1);
            if (!schema) return false;
            const bool known = hasKey(schema, kKeys[index]) != 0;
            unrefSchema(schema);
            if (!known) return false;
            settings[index] = newSettings(kSchemas[index]);
        }
        return true;
    }

    std::string text(std::size_t index) const {
        char* const value = getString(settings[index], kKeys[index]);
        std::string copy = value ? value : "";
        free(value);
        return copy;
    }
};

GioProxySettings::GioProxySettings() = default;
GioProxySettings::~GioProxySettings() = default;

std::optional<ProxyText::GnomeSettings> GioProxySettings::read() {
    if (!std::exchange(m_looked, true)) {
        auto library = std::make_unique<Library>();
        if (library->load() && library->openSettings()) m_library = std::move(library);
    }
    if (!m_library) return std::nullopt;
    return ProxyText::GnomeSettings{.mode = m_library->text(0),
                                    .httpHost = m_library->text(1),
                                    .httpsHost = m_library->text(2),
                                    .socksHost = m_library->text(3)};
}

}  // namespace velmora
