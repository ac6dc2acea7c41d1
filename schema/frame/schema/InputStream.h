// Reads the primitives of the compiled form: little-endian CDR, and the pool of type names.
#pragma once

#include <schema/FieldListener.h>
#include <schema/Registry.h>
#include <schema/Runtime.h>

#include <cstdint>
#include <string_view>
#include <vector>

namespace schema {

class CdrInput;

// Reads one file; alignment counts from its first byte. Every operation throws the runtime's ace_cdr_stream_extraction when
// the bytes don't hold what is asked for; no length is believed before it is compared with the bytes that are left.
class InputStream {
public:
    explicit InputStream(CdrInput& stream, FieldListener* listener = nullptr);
    InputStream(const InputStream&) = delete;
    InputStream& operator=(const InputStream&) = delete;

    // `role` tells a listener what the number is to its member.
    bool readBoolean(const char* role = "");
    std::int16_t readShort(const char* role = "");
    std::uint16_t readUnsignedShort(const char* role = "");
    std::int32_t readLong(const char* role = "");
    std::uint32_t readUnsignedLong(const char* role = "");
    std::int64_t readLongLong();
    double readDouble(const char* role = "");
    // The bytes of a string without its final zero, or of an octet array; valid as long as the file's memory.
    std::string_view readString(const char* role = "");
    std::string_view readOctets();
    // A namespace and a name, each from the pool or for the pool. Throws no_type_info when they name no registered type.
    const RegisteredType& readType();

    FieldListener* listener() const { return listener_; }

    // One object inside another, as long as this lives. Throws NestedTooDeep where XML would be refused too, and when the
    // thread's stack comes to its end.
    class Level {
    public:
        explicit Level(InputStream& stream);
        ~Level() { --stream_.depth_; }
        Level(const Level&) = delete;
        Level& operator=(const Level&) = delete;

    private:
        InputStream& stream_;
    };

private:
    struct PooledString {
        std::string_view text;
        // The type that this name was the last to mean, and the number of the namespace with which it did.
        const RegisteredType* type = nullptr;
        std::uint32_t space = 0;
    };

    // A number in little-endian order, behind what fills up to a border of its size.
    template <typename Stored, typename T = Stored>
    T number(const char* role);
    std::string_view bytes(std::size_t size);
    std::size_t offset() const;
    std::uint32_t readPooled(const char* role);

    CdrInput& stream_;
    const char* const begin_;
    FieldListener* const listener_;
    std::size_t depth_ = 1;
    std::vector<PooledString> pool_;
};

}  // namespace schema
