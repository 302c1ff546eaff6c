#pragma once

/// Settings of the calling thread.
class QVThreadContext {
public:
    /// The languages for which there is a catalog.
    enum class Language { english };

    /// Sets the thread's catalog language to the language of the log, which is English. Never throws.
    static void mf_setLoggingLanguage() noexcept { language = Language::english; }

    static Language mf_getLanguage() noexcept { return language; }

private:
    static inline thread_local Language language = Language::english;
};
