// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/LibavHandles.h"
#include "platform/FileUrl.h"

#include <sys/types.h>

namespace zumeta {

/// A new file on disk that libav writes through. It remembers which file it made, so that clean-up never takes away
/// another one that has since come to stand at the same place.
class OutputFile {
public:
    /// Throws MovieError::cannotWrite, also when something is there already.
    explicit OutputFile(const FileUrl& file);
    ~OutputFile();
    OutputFile(const OutputFile&) = delete; // libav holds its address
    OutputFile& operator=(const OutputFile&) = delete;

    AVIOContext* context() const { return m_context.get(); }
    /// The system's words for the first write that failed; empty while all went well.
    std::string failure() const;
    /// Throws MovieError::cannotWrite when what was written has not reached the file.
    void close();
    /// Removes the file if it is still the one that was made here.
    void remove() noexcept;

private:
    static int write(void* self, uint8_t* bytes, int count);
    static int64_t seek(void* self, int64_t offset, int whence);

    struct FreesContext {
        void operator()(AVIOContext* context) const noexcept;
    };

    FileUrl m_url;
    int m_descriptor = -1;
    dev_t m_device = 0;
    ino_t m_inode = 0;
    int m_error = 0; ///< errno of the first failure
    std::unique_ptr<AVIOContext, FreesContext> m_context;
};

}
