#include "formats.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using Kelpkit::Takes;
using Kelpkit::programs::DescribedTool;
using Kelpkit::programs::json;
using Kelpkit::programs::markdown;

const DescribedTool usual{"firstlines",
                          "     Small tools",
                          "Shows the first lines of a text.",
                          "[OPTIONS] FILE ",
                          "-n=3 notes.txt",
                          {{"-c", "--case", "keeps the case", Takes::unknown, "", {}},
                           {"-d", "--dir", "where", Takes::folder, "DIR", {}},
                           {"-h", "--help", "shows this help", Takes::nothing, "", {}},
                           {"-m", "--method", "how", Takes::choice, "", {"fast", "exact"}},
                           {"-n", "--number", "how many lines", Takes::text, "LINES", {}},
                           {"-o", "--output", "where to", Takes::file, "FILE", {}},
                           {"-w", "--width", "how wide", Takes::text, "", {}}},
                          {{"FILE", "the text", false, false}, {"OTHER", "more", true, true}}};

/// The texts look like parts of the formats.
const DescribedTool odd{
    "odd\"name",
    "\x7f\x1f\\",
    "1. a *b* _c_ `d` [e](f) <g> &amp; #h $(i) {j} |k| ~l~ \\ \xC3\xA9\xE6\x97\xA5",
    "\t a``b\n```\n\x01",
    "",
    {{"-a", "", "- b\r\n\t# c\x02 ", Takes::text, "`", {}}, {"", "--`", "", Takes::choice, "", {"\"", "``"}}},
    {{"", "+", false, true}}};

const DescribedTool bare{"bare", "", "", "", "", {}, {}};

TEST(Json, Usual) {
    EXPECT_EQ(json(usual), R"({
  "format": 1,
  "name": "firstlines",
  "banner": "     Small tools",
  "description": "Shows the first lines of a text.",
  "usage": "[OPTIONS] FILE ",
  "example": "-n=3 notes.txt",
  "options": [
    {"short": "-c", "long": "--case", "text": "keeps the case", "takes": "unknown", "value": "", "choices": []},
    {"short": "-d", "long": "--dir", "text": "where", "takes": "folder", "value": "DIR", "choices": []},
    {"short": "-h", "long": "--help", "text": "shows this help", "takes": "nothing", "value": "", "choices": []},
    {"short": "-m", "long": "--method", "text": "how", "takes": "choice", "value": "", "choices": ["fast", "exact"]},
    {"short": "-n", "long": "--number", "text": "how many lines", "takes": "text", "value": "LINES", "choices": []},
    {"short": "-o", "long": "--output", "text": "where to", "takes": "file", "value": "FILE", "choices": []},
    {"short": "-w", "long": "--width", "text": "how wide", "takes": "text", "value": "", "choices": []}
  ],
  "arguments": [
    {"name": "FILE", "text": "the text", "repeated": false, "optional": false},
    {"name": "OTHER", "text": "more", "repeated": true, "optional": true}
  ]
}
)");
}

TEST(Json, Odd) {
    EXPECT_EQ(json(odd), R"({
  "format": 1,
  "name": "odd\"name",
  "banner": "\u007f\u001f\\",
  "description": "1. a *b* _c_ `d` [e](f) <g> &amp; #h $(i) {j} |k| ~l~ \\ )"
                         "\xC3\xA9\xE6\x97\xA5"
                         R"(",
  "usage": "\u0009 a``b\u000a```\u000a\u0001",
  "example": "",
  "options": [
    {"short": "-a", "long": "", "text": "- b\u000d\u000a\u0009# c\u0002 ", "takes": "text", "value": "`", "choices": []},
    {"short": "", "long": "--`", "text": "", "takes": "choice", "value": "", "choices": ["\"", "``"]}
  ],
  "arguments": [
    {"name": "", "text": "+", "repeated": false, "optional": true}
  ]
}
)");
}

TEST(Json, Bare) {
    EXPECT_EQ(json(bare), R"({
  "format": 1,
  "name": "bare",
  "banner": "",
  "description": "",
  "usage": "",
  "example": "",
  "options": [],
  "arguments": []
}
)");
}

TEST(Markdown, Usual) {
    EXPECT_EQ(markdown(usual), R"(# firstlines

Shows the first lines of a text.

## Usage

```
firstlines [OPTIONS] FILE
```

## Options

- `-c`, `--case`: keeps the case
- `-d=DIR`, `--dir=DIR`: where
- `-h`, `--help`: shows this help
- `-m=fast|exact`, `--method=fast|exact`: how
- `-n=LINES`, `--number=LINES`: how many lines
- `-o=FILE`, `--output=FILE`: where to
- `-w=VALUE`, `--width=VALUE`: how wide

## Arguments

- `FILE`: the text
- `OTHER`: more

## Example

```
firstlines -n=3 notes.txt
```
)");
}

TEST(Markdown, NameBesideChoices) {
    DescribedTool tool = bare;
    tool.options = {{"-j", "", "", Takes::choice, "N", {"auto", "all"}}};
    EXPECT_NE(markdown(tool).find("\n- `-j=N|auto|all`\n"), std::string::npos);
}

TEST(Markdown, Odd) {
    EXPECT_EQ(markdown(odd), R"(# odd"name

1\. a \*b\* \_c\_ \`d\` \[e\](f) \<g\> \&amp; \#h \$(i) \{j\} \|k\| \~l\~ \\ )"
                             "\xC3\xA9\xE6\x97\xA5"
                             R"(

## Usage

````
odd"name   a``b
```
\x01
````

## Options

- `` -a=` ``: \- b   \# c\\x02
- ``` --`="|`` ```

## Arguments

- \+
)");
}

TEST(Markdown, Bare) {
    EXPECT_EQ(markdown(bare), R"(# bare

## Usage

```
bare
```
)");
}

}  // namespace
