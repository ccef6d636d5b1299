#pragma once

#include <filesystem>
#include <string>

namespace tambrix {

/// A symbolic link that always leads to the present device, under a name that stays.
class StableLink
{
public:
    /// An empty path makes a link that does nothing.
    explicit StableLink(std::filesystem::path path);
    ~StableLink();
    StableLink(const StableLink&) = delete;
    StableLink& operator=(const StableLink&) = delete;

    /// Leads to `device` from now on. Throws std::filesystem::filesystem_error when the link
    /// cannot be made or something that is no link stands in its place.
    void pointTo(const std::string& device);

    /// Removes the link, unless somebody else has made it lead elsewhere.
    void remove();

private:
    std::filesystem::path m_path;
    std::filesystem::path m_device;
};

} // namespace tambrix
