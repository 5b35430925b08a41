#include "batch/wording.h"

namespace quillmark::wording {

const std::string_view kHelp = R"(Converts, checks, describes and shows Garmin TYP files.

  quillmark-batch text  IN OUT.txt [--utf8] [--poi-code long|short]
                        [--no-true-colours] [--no-header]
  quillmark-batch typ   IN OUT.typ [--header 91|110|156|164|174]
                        [--fid N] [--product N] [--codepage N]
  quillmark-batch icons IN OUT.png [--kind polygon|polyline|poi|extrapoi] [--night]
                        [--zoom N] [--labels none|text|type|both] [--language N]
  quillmark-batch check FILE...
  quillmark-batch info  FILE...

IN and FILE are TYP files, or text files when their name ends in ".txt".
"-" is standard input or output; what comes in is told by its content.

text    writes the text form, in the code page of the document
  --utf8             in UTF-8
  --poi-code FORM    long: type and subtype of a point on two lines (default);
                     short: both in one number
  --no-true-colours  leaves out the pixels of point pictures without palette
  --no-header        leaves out the comment lines that tell where the text is from

typ     compiles a text, or saves a TYP file anew
  --header N         size of the header; without it a TYP file keeps its size and
                     a text takes the smallest one that loses nothing
  --fid N            family number, 1 to 65535
  --product N        product code, 1 to 65535
  --codepage N       code page of the labels; they are converted to it

icons   paints the icon sheet: all objects of a kind
  --kind KIND        polygon, polyline, poi or extrapoi; without it the first of them
                     that the file has
  --night            the pictures by night
  --zoom N           a pixel is N by N, 1 to 8
  --labels MODE      below the pictures: none (default), text, type or both
  --language N       of the labels, their language number from 0 to 54 (default 1)

check   prints each file's journal, one line "FILE: error|warning: message" an entry
info    prints header fields and counts; the hexadecimal number behind a count is a
        checksum of types and contents, the same for the same objects

All commands:
  --language NAME    messages from the language file Langues/NAME.lng (else French)
  --help, --version

A file with errors is converted as far as it could be read. Where an output can't be
written, an old file of that name stays as it was. SOURCE_DATE_EPOCH sets the date that
goes into the header. QUILLMARK_DATA names the folder of MPCTypes.txt and Langues/ when
it isn't the program's own.

Exit status: 0 fine, 1 warnings (check only), 2 errors in a file or a refusal,
3 wrong usage.
)";

}  // namespace quillmark::wording
