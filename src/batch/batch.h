// The command line as a function: arguments and streams in, an exit status out.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace quillmark {

// `arguments` without the name of the program, in UTF-8. Returns 0 fine, 1 warnings in a file
// read (`check` only), 2 errors in a file read or a refusal, 3 wrong usage.
int runBatch(const std::vector<std::string>& arguments, std::istream& in, std::ostream& out,
             std::ostream& err);

}  // namespace quillmark
