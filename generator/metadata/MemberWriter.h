#ifndef WRT_GENERATOR_METADATA_MEMBER_WRITER_H
#define WRT_GENERATOR_METADATA_MEMBER_WRITER_H

#include "generator/metadata/Family.h"
#include "generator/output/Writer.h"

namespace bridgegen::metadata {

/// The name as a file of the namespace writes it: simple for its own types, in full for others.
std::string shortName(const syntax::TypeName &type, const std::string &nameSpace);

/// `start` and the items with commas between, in lines of 100 columns; those behind the first are
/// indented.
std::string listed(const std::string &start, const std::vector<std::string> &items);
/// The same with a parenthesis at the end; `start` has the first.
std::string enclosed(const std::string &start, const std::vector<std::string> &items);

/// A comment of one line, whatever `text` is.
void writeComment(Writer &writer, const std::string &text);

/// The member's line or lines.
void writeMember(Writer &writer, const DeclaredMember &member, const std::string &nameSpace);

} // namespace bridgegen::metadata

#endif
