// The terms and the action that read files of the host's store. The other half of the module, which would write, has no
// behaviour; this is meant.
#include <OTXCoreTerms/Asking.h>
#include <OTXCoreTerms/VariableAccess.h>
#include <otx/host/HvtFileStore.h>
#include <otx/value/COtxException.h>
#include <otx/value/COtxFileReadHandle.h>
#include <otx/value/COtxString.h>
#include <otx/value/Functions.h>
#include <otx/value/IFileHandle.h>
#include <otx/value/IString.h>
#include <schema/File.h>
#include <schema/StringUtil.h>

#include <exception>
#include <istream>

namespace File {

namespace {

Hvt::Fs::FileDetails detailsOf(const COtxValue& path) { return {path.String(), "FILE"}; }

// A store that is missing fails as if it were the file.
std::shared_ptr<std::istream> streamOf(const COtxValue& path, otxns::OtxContext& context) {
    HvtFileStore& store = context.FileStore();
    const Hvt::Fs::FileDetails details = detailsOf(path);
    const COtxValue metaData = store.MetaData(details, Hvt::Fs::Caches::DEFAULT);
    const COtxValue format = OTX::GetOptionalParameter(metaData, Hvt::Fs::MetaData::FORMAT, COtxString(), OTX::ValueType::String);
    return store.Decode(store.Open(details, Hvt::Fs::Caches::DEFAULT), format.String());
}

// What is left out is -1 for the handle, which a sequence therefore can't say.
template <class Optional>
std::int64_t notNegative(const Optional& operand, const char* failure, otxns::OtxContext& context) {
    if (!operand.present()) return -1;
    const std::int64_t number = otxns::evaluate(operand.get(), context).Int();
    if (number < 0) throw COtxException(OTX::Exceptions_e::OutOfBoundsException, failure);
    return number;
}

}  // namespace

// The encoding is evaluated ahead of the path.
template <>
COtxValue OpenFileForRead_impl<OpenFileForRead_base>::eval(otxns::OtxContext& context) const {
    auto number = COtxStringEncoding::Utf8;
    if (encoding().present()) {
        const COtxValue literal = otxns::converted(otxns::evaluate(encoding().get(), context), context, &COtxValue::ToString);
        number = static_cast<COtxStringEncoding::Encoding>(COtxStringEncoding(literal.String()).Int());
    }
    const COtxValue name = otxns::evaluate(path(), context);
    try {
        std::shared_ptr<std::istream> stream = streamOf(name, context);
        return COtxFileReadHandle(stream, number, name);
    } catch (const COtxValue&) {
        throw;
    } catch (const std::exception&) {
        throw COtxException(OTX::Exceptions_e::FileNotFoundException);
    }
}

// Failures of every kind mean no, that of a missing store too; this is meant.
template <>
COtxValue IsFile_impl<IsFile_base>::eval(otxns::OtxContext& context) const {
    const COtxValue name = otxns::evaluate(path(), context);
    try {
        HvtFileStore& store = context.FileStore();
        store.Open(detailsOf(name), Hvt::Fs::Caches::DEFAULT);
        return COtxBool(true);
    } catch (const std::exception&) {
        return COtxBool(false);
    }
}

OTX_TERM(ReadLine, otxns::ask(context, handle(), &COtxValue::FileReadHandle, &OTX::IFileReadHandle::ReadLine))
OTX_TERM(IsEndOfFileReached, otxns::ask(context, handle(), &COtxValue::FileReadHandle, &OTX::IFileReadHandle::IsEof))

// The handle is taken as one only when index and count are known.
template <>
COtxValue ReadBytes_impl<ReadBytes_base>::eval(otxns::OtxContext& context) const {
    const COtxValue file = otxns::evaluate(handle(), context);
    const std::int64_t from = notNegative(index(), "Cannot have a negative byte index", context);
    const std::int64_t length = notNegative(count(), "Cannot have a negative byte count", context);
    return file.FileReadHandle().ReadBytes(from, length);
}

OTX_ACTION(CloseFile, otxns::tell(context, handle(), &COtxValue::FileHandle, &OTX::IFileHandle::Close))

OTX_TERM(FileReadHandleValue, otxns::valueOfVariable(*this, context))
OTX_TERM(FileReadHandle, COtxFileReadHandle())

}  // namespace File
