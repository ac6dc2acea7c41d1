// What a loaded document declares: its identity, its procedures with their parameters and nodes, its global data.
#pragma once

#include <otx/Export.h>

#include <cstddef>
#include <string>
#include <vector>

namespace velkotx {

class Sequencer;

// How a value travels between a procedure and its caller (ISO 13209-2, parameter declarations).
enum class ParameterDirection { in, inout, out };

// A parameter of a procedure. Plain data; all texts are UTF-8.
struct ParameterInfo {
    std::string name;
    ParameterDirection direction = ParameterDirection::in;

    // The data type as an author would say it: "Integer", "List<Integer>", "Map<String, Float>"; a type of an extension
    // module with the module's name in front, "DiagCom::Request"; empty for a declaration without a data type.
    std::string type;

    std::string specification;
};

// A procedure of a document.
struct ProcedureInfo {
    std::string name;           // empty for a procedure without a name, which can't be run
    std::string visibility;     // "PUBLIC", "PACKAGE" or "PRIVATE"; empty where the document doesn't say
    std::string specification;  // what the author wrote about it, as it stands in the document
    bool runnable = false;      // false for a mere specification, which has no realisation or no name

    std::vector<ParameterInfo> parameters;  // the in, then the in-out, then the out parameters, each in document order
};

// What kind of global data a declaration makes.
enum class GlobalKind { constant, variable, context };

// A global declaration of a document.
struct GlobalInfo {
    std::string name;
    GlobalKind kind = GlobalKind::variable;
    std::string type;  // as ParameterInfo::type
    std::string visibility;
    std::string specification;
};

// The description of a document.
struct DocumentInfo {
    std::string name;  // empty where the document has none
    std::string package;
    std::string version;
    std::string specification;

    std::vector<ProcedureInfo> procedures;  // in document order; of several with one name, Run takes the last
    std::vector<GlobalInfo> globals;        // the constants, then the variables, then the context variables
};

// Describes the document that a Sequencer has loaded. May be called from any thread, also while a run is in progress: a
// loaded document doesn't change. Throws std::invalid_argument for a Sequencer that CreateSequencer didn't make.
OTX_API DocumentInfo DescribeDocument(const Sequencer& sequencer);

// A node of a procedure: what a flow stops at, by its id. Plain data; all texts are UTF-8.
struct NodeInfo {
    std::string id;
    std::string name;  // empty for a node without a name

    // The node's class as an author would say it, "Branch", "Parallel"; that of its realisation for actions and loops,
    // "Assignment", "WhileLoop", or "Null action" and "Null loop" without one.
    std::string type;

    // Which flow of the enclosing node it stands in: "if", "elseif 1", "else", "try", "catch 1", "finally", "lane 1"; empty
    // in the procedure's own flow and where the enclosing node has only one.
    std::string part;

    std::size_t depth = 0;  // the number of nodes that enclose it
    std::size_t flows = 0;  // how many flows it has, the empty ones too: the lanes of a Parallel
    bool disabled = false;  // the author switched it off: it is never run
};

// The nodes of the procedure that Run takes for this name, in document order, an enclosing node ahead of those that it
// encloses. Threads as DescribeDocument. Throws std::invalid_argument for a Sequencer that CreateSequencer didn't make and
// for a name that Run doesn't know.
OTX_API std::vector<NodeInfo> DescribeNodes(const Sequencer& sequencer, const std::string& procedure);

}  // namespace velkotx
