#include "dos_path.h"

#include <cwctype>

namespace kestrel::detail {

namespace {

bool StartsWithNoCase(std::wstring_view text, std::wstring_view prefix) {
    if (text.size() < prefix.size()) return false;
    for (size_t i = 0; i < prefix.size(); ++i) {
        if (std::towlower(text[i]) != std::towlower(prefix[i])) return false;
    }
    return true;
}

// The prefix matches a whole path component: the path ends there or goes on with a backslash.
bool StartsWithComponent(std::wstring_view text, std::wstring_view prefix) {
    return !prefix.empty() && StartsWithNoCase(text, prefix) &&
           (text.size() == prefix.size() || text[prefix.size()] == L'\\');
}

constexpr std::wstring_view kDosPrefixes[] = {L"\\??\\", L"\\DosDevices\\", L"\\GLOBAL??\\"};
constexpr std::wstring_view kNetworkDevices[] = {L"\\Device\\Mup", L"\\Device\\LanmanRedirector"};

}  // namespace

bool IsDrivePath(std::wstring_view path) {
    if (path.size() < 2 || path[1] != L':') return false;
    const wchar_t letter = static_cast<wchar_t>(std::towupper(path[0]));
    if (letter < L'A' || letter > L'Z') return false;
    return path.size() == 2 || path[2] == L'\\';
}

std::wstring NativeToDosPath(std::wstring_view nativePath, std::span<const DriveDevice> drives) {
    for (std::wstring_view prefix : kDosPrefixes) {
        if (StartsWithNoCase(nativePath, prefix)) {
            std::wstring_view rest = nativePath.substr(prefix.size());
            if (StartsWithNoCase(rest, L"UNC\\")) return L"\\\\" + std::wstring(rest.substr(4));
            return std::wstring(rest);
        }
    }
    // The longest matching device wins (a drive made with subst names a folder of another drive's device).
    const DriveDevice* best = nullptr;
    for (const DriveDevice& drive : drives) {
        if (StartsWithComponent(nativePath, drive.device) && (!best || drive.device.size() > best->device.size()))
            best = &drive;
    }
    if (best) return best->drive + std::wstring(nativePath.substr(best->device.size()));
    for (std::wstring_view device : kNetworkDevices) {
        if (StartsWithComponent(nativePath, device) && nativePath.size() > device.size())
            return L"\\" + std::wstring(nativePath.substr(device.size()));
    }
    return std::wstring(nativePath);
}

std::wstring RegistryDisplayPath(std::wstring_view nativePath) {
    struct Root {
        std::wstring_view native;
        std::wstring_view shown;
    };
    constexpr Root kRoots[] = {{L"\\REGISTRY\\MACHINE", L"HKLM"}, {L"\\REGISTRY\\USER", L"HKU"}};
    for (const Root& root : kRoots) {
        if (StartsWithComponent(nativePath, root.native))
            return std::wstring(root.shown) + std::wstring(nativePath.substr(root.native.size()));
    }
    return std::wstring(nativePath);
}

}  // namespace kestrel::detail
