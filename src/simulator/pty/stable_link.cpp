#include "simulator/pty/stable_link.h"

#include <system_error>
#include <utility>

namespace tambrix {

namespace fs = std::filesystem;

StableLink::StableLink(fs::path path) : m_path(std::move(path)) {}

StableLink::~StableLink()
{
    remove();
}

void StableLink::pointTo(const std::string& device)
{
    if (m_path.empty())
        return;
    if (fs::is_symlink(m_path))
        fs::remove(m_path);
    fs::create_symlink(device, m_path);
    m_device = device;
}

void StableLink::remove()
{
    std::error_code ignored;
    if (!m_device.empty() && fs::read_symlink(m_path, ignored) == m_device)
        fs::remove(m_path, ignored);
    m_device.clear();
}

} // namespace tambrix
