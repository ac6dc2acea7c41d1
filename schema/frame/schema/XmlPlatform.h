// The XML parser's process-wide initialisation, made safe between threads.
#pragma once

namespace schema {

// Each initialise has its terminate; the calls are serialised, since the parser's own counter isn't safe between threads.
// One more initialisation, made at the first call, lasts as long as the process, so that no terminate ever takes the
// parser away from another thread.
class XmlPlatform {
public:
    static void initialise();
    static void terminate();

    // A pair around a piece of work.
    XmlPlatform() { initialise(); }
    ~XmlPlatform() { terminate(); }
    XmlPlatform(const XmlPlatform&) = delete;
    XmlPlatform& operator=(const XmlPlatform&) = delete;
};

}  // namespace schema
