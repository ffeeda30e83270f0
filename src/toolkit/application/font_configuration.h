#pragma once

#include <thread>

namespace talvora {

/// Reads the configuration of the system's fonts beside the caller, on systems where Qt finds them by Fontconfig; on
/// others it does nothing. Qt itself would read it at the first text, which took a tenth of the time to the first
/// window.
class FontConfiguration {
 public:
    /// Begins the reading, in the time that no one else on this machine wants.
    FontConfiguration();
    FontConfiguration(const FontConfiguration&) = delete;
    FontConfiguration& operator=(const FontConfiguration&) = delete;
    ~FontConfiguration() { finish(); }

    /// Returns when the configuration is read; from here on the reading has its full share of the processor.
    void finish();

 private:
    std::thread reading_;
};

}  // namespace talvora
