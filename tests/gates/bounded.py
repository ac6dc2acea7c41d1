"""Allocations by a number that are bounded: the file, the call without what literals hold, and what bounds the number."""

TEXT = "in proportion to the text that is there"
BYTES = "in proportion to the bytes that are there"
COPY = "a copy of what is there"

SIZED = {
    "contracts/otx/value/Pool.h": {
        "operator new(size)": "the size of an object",
        "operator new((sizeClass + 1) * granule)": "the size of an object",
        "operator new(count * sizeof(T))": "an allocator: what its container asks for",
    },
    "generated/": {
        "allocate(size)": "the size of an object",
        "order_(other.order_)": COPY,
    },
    "host/vehicle/CheckOverlap.cpp": {
        "written_(prefix, 0xFF)": "the prefix that the message has",
        "Bytes(fixedSize(value), 0xFF)": "a field is no longer than the largest message",
        "written_.resize(at + own.size())": "checked by the caller: longestChecked, and one field behind it",
    },
    "host/vehicle/DataSource.cpp": {"target.insert(target.end(), bytes.begin(), bytes.end())": COPY},
    "host/vehicle/Exchange.h": {"answer.insert(answer.end(), bytes.begin(), bytes.end())": COPY},
    "host/vehicle/FaultInjector.h": {"seen_(faults.size(), 0)": "the faults that the file has"},
    "host/vehicle/JsonReader.cpp": {"asked_(place.node().items.size(), false)": "the members that the object has"},
    "host/vehicle/ReadControlUnit.cpp": {"std::vector<std::size_t> order(unit.memories.size())": "the memories that the file has"},
    "host/vehicle/ReadData.cpp": {
        "Bytes bytes(static_cast<std::size_t>(size))": "checked by the caller: the file has them, and no more than largestData",
    },
    "host/vehicle/ReadSources.cpp": {
        "Bytes bytes(text.begin(), text.end())": COPY,
        "bytes.resize(std::max(length, text.size()), 0)": "checked by readLength: 4095 or the text that is there, and taken of the budget",
    },
    "host/vehicle/ReadVehicle.cpp": {
        "std::string text(static_cast<std::size_t>(largestFile) + 1, )": "a constant",
        "text.resize(static_cast<std::size_t>(stream.gcount()))": "it becomes shorter",
    },
    "host/vehicle/ServiceFrame.cpp": {
        "exchange.answer.assign(1, static_cast<std::uint8_t>(entry->id + 0x40))": "one byte",
    },
    "host/vehicle/SimulatedControlUnit.cpp": {
        "exchange.answer.resize(std::min(*plan.length, exchange.answer.size()))": "it becomes shorter",
    },
    "host/vehicle/UnitState.cpp": {
        "Bytes(static_cast<std::size_t>(description.size), description.fill)": "checked by the reader: largestMemory, and the budget",
        "troubleCodes(unit.troubleCodes)": COPY,
    },
    "host/vehicle/services/DataServices.cpp": {
        "state.controlValue.assign(value.begin(), value.end())": "the bytes of the request",
        "state.controlValue.assign(length, 0)": "the sources of a data identifier, of which each is bounded by its reader",
        "written.assign(data.begin(), data.end())": "the bytes of the request",
    },
    "host/vehicle/services/SecurityAccess.cpp": {
        "Bytes seed(security.seedLength)": "checked by the reader: 255",
        "Bytes(security.seedLength, 0)": "checked by the reader: 255, or the seed that the file has",
    },
    "libraries/value/src/ByteFieldOperations.cpp": {
        "result.insert(result.begin(), size - result.size(), 0)": "the longer of the two fields",
        "right.insert(right.begin(), size - right.size(), 0)": "the longer of the two fields",
        "std::vector<unsigned char> result(size())": COPY,
        "resize(first + written.size())": "an index inside the field, and the bytes that are there",
        "insert(end(), appended.begin(), appended.end())": COPY,
    },
    "libraries/value/src/COtxByteField.cpp": {"std::vector<unsigned char> field(bytes, bytes + size)": "the host's bytes"},
    "libraries/value/src/COtxList.cpp": {"copied.reserve(items.size())": COPY},
    "libraries/value/src/FileReader.cpp": {
        "buffer_(bufferSize)": "a constant",
        "bytes.insert(bytes.end(), from, from + static_cast<std::ptrdiff_t>(piece))": "a piece of the buffer, and largestPiece in all",
        "line_.append(buffer_.data() + next_, bytes)": "a piece of the buffer, and largestPiece in all",
    },
    "libraries/value/src/IntegerBytes.cpp": {"std::vector<unsigned char> bytes(size)": "at the most the eight bytes of an integer"},
    "libraries/value/src/JsonWriter.cpp": {
        "std::vector<COtxValue>{key, value}": "two values",
        "result.reserve(text.size() + 2)": TEXT,
    },
    "libraries/value/src/Numbers.cpp": {"std::string text(digits.data(), end)": "at the most 32 digits"},
    "libraries/value/src/QuantityArithmetic.cpp": {
        "unit.append(neededTerms(right.unit), operation == Operation::Multiply ? 1 : -1)": "no count: terms and their exponent's sign",
    },
    "libraries/value/src/StringBytes.cpp": {
        "bytes.reserve(text.size())": TEXT,
        "text.reserve(bytes.size())": BYTES,
        "std::u16string units(text.size() + 1, u )": TEXT,
        "units.resize(static_cast<std::size_t>(length))": "it becomes shorter",
        "Bytes bytes(static_cast<std::size_t>( UCNV_GET_MAX_BYTES_FOR_STRING(count, ucnv_getMaxCharSize(converter.getAlias()))))": TEXT,
        "bytes.resize(static_cast<std::size_t>(written))": "it becomes shorter",
        "std::u16string units(size + 1, u )": BYTES,
        "std::string text(static_cast<std::size_t>(count) * 3 + 1, )": BYTES,
        "text.resize(static_cast<std::size_t>(length))": "it becomes shorter",
        "bytes.reserve(text.size() / digits.perByte)": TEXT,
        "text.reserve(bytes.size() * digits.perByte)": BYTES,
        "Bytes(text.begin(), text.end())": COPY,
        "std::string text(bytes.begin(), bytes.end())": COPY,
    },
    "libraries/value/src/StringMatch.cpp": {"std::vector<int> room(2 + 6 * states)": "clamped to mostStates"},
    "libraries/value/src/StringOperations.cpp": {
        "result.reserve(text.text().size() - (end - begin) + written.text().size())": TEXT,
        "result.append(text.text(), 0, begin)": "a part of a text",
        ").append(text.text(), end)": "a part of a text",
    },
    "libraries/value/src/Utf8.cpp": {"repaired.reserve(text.size())": TEXT},
    "libraries/value/src/event/EventSources.cpp": {
        "Members added{member}": "one member",
        "members_.insert(members_.end(), added.begin(), added.end())": COPY,
    },
    "libraries/value/src/match/Translation.cpp": {"result_.pattern.reserve(2 * rest_.size())": TEXT},
    "schema/frame/schema/Arena.cpp": {
        "new std::byte[size]": "the caller's size of a block",
        "operator new(size + heapOffset)": "the size of an object",
    },
    "schema/frame/schema/CdrMemory.h": {
        "make_unique_for_overwrite<char[]>(size)": "for writing: what the document has",
        "malloc(size)": "the same",
        "calloc(count * size, initialValue)": "the same",
    },
    "schema/frame/schema/CompiledForm.cpp": {
        "bytes.reserve(initialSize)": "a constant",
        "bytes.assign(std::istreambuf_iterator<char>(file.rdbuf()), {})": "what the file has",
    },
    "schema/frame/schema/FieldPrinter.cpp": {
        "std::string blanks(width > text.size() ? width - text.size() : 0, )": "constants",
        ").assign(name.begin(), name.end())": "a name of the catalogue",
        "std::string(bytesColumn, )": "a constant",
        "std::string(2 * members_.size(), )": "the levels that the reader is in",
    },
    "schema/frame/schema/Holders.h": {"hex_binary(bytes.data(), bytes.size())": "a view of bytes that are there"},
    "schema/frame/schema/InternedString.h": {"allocate(size)": "the size of an object"},
    "schema/frame/schema/Name.cpp": {"new Name[remembered]": "a constant"},
    "schema/frame/schema/Registry.cpp": {"names.reserve(maps().byName.size())": "the types that there are"},
    "schema/frame/schema/Suggestion.cpp": {
        "std::vector<std::size_t> row(other.size() + 1)": "a name of the catalogue",
    },
    "schema/frame/schema/Text.cpp": {
        "std::string narrowed(length, )": "counted in the text that is there",
        "make_unique<hex_binary>(digits.size() / 2)": "the digits that are there",
        "make_unique<hex_binary>(*readHexBinary(narrow(text)), f, owner)": "a copy",
    },
    "schema/frame/schema/XmlMemory.cpp": {
        "operator new(sizeof(Link) + size, std::nothrow)": "the XML parser's buffers, which grow with the text that it has read",
    },
}
