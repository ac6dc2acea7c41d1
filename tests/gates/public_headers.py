"""The rule about public headers: they include the standard library's headers and our own, so that hosts and providers need
nothing else to compile them."""
import re

import cpp_text

STANDARD = frozenset("""
algorithm any array atomic barrier bit bitset charconv chrono codecvt compare complex concepts condition_variable coroutine deque
exception execution filesystem format forward_list fstream functional future initializer_list iomanip ios iosfwd iostream istream
iterator latch limits list locale map memory memory_resource mutex new numbers numeric optional ostream queue random ranges ratio
regex scoped_allocator semaphore set shared_mutex source_location span sstream stack stdexcept stop_token streambuf string
string_view strstream syncstream system_error thread tuple type_traits typeindex typeinfo unordered_map unordered_set utility
valarray variant vector version
cassert cctype cerrno cfenv cfloat cinttypes climits clocale cmath csetjmp csignal cstdarg cstddef cstdint cstdio cstdlib cstring
ctime cuchar cwchar cwctype
""".split())
# The folders of public headers, and whose headers each may include besides: the interface knows the contracts, these nobody.
ROOTS = {"include/": ("velkotx/", "otx/"), "contracts/": ("otx/",)}
DIRECTIVE = re.compile(
    r"^[ \t]*(?:(?:#|%:)[ \t]*(?P<how>include|include_next|import)|(?:export[ \t]+)?import)\b[ \t]*(?P<what>[^\n]*)", re.M)


def includes(name, text):
    own = next((own for root, own in ROOTS.items() if name.startswith(root)), None)
    if own is None or not name.endswith(cpp_text.SUFFIXES):
        return
    # The names in angle brackets are no literals, so they are left; of a name in quotes only blanks are.
    code = cpp_text.without_comments(text)
    for match in DIRECTIVE.finditer(code):
        what = match["what"].strip()
        header = what[1:-1] if match["how"] == "include" and re.fullmatch(r"<[^<>]+>", what) else ""
        if ".." in header or not (header in STANDARD or header.startswith(own)):
            line = cpp_text.line_of(code, match.start())
            yield line, f"{text.splitlines()[line - 1].strip()}: a public header includes the standard's headers and our own, by <...>"
