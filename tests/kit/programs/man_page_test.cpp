#include <gtest/gtest.h>

#include <string>

#include "formats.h"

namespace {

using Kelpkit::Takes;
using Kelpkit::programs::DescribedTool;
using Kelpkit::programs::manPage;

constexpr const char* date = "November 22, 2026";

const DescribedTool usual{"firstlines",
                          "     Small tools",
                          "Shows the first lines of a text. They may be cut.",
                          "[-c] [-d=DIR|-m=fast|exact] [-n=LINES] [-o=FILE] FILE [OTHER...] ",
                          "-n=3 notes.txt",
                          {{"-c", "--case", "keeps the case", Takes::unknown, "", {}},
                           {"-d", "--dir", "where", Takes::folder, "DIR", {}},
                           {"-h", "--help", "shows this help", Takes::nothing, "", {}},
                           {"-m", "--method", "how", Takes::choice, "", {"fast", "exact"}},
                           {"-n", "--number", "how many lines (10)", Takes::text, "LINES", {}},
                           {"-w", "--width", "how wide", Takes::text, "", {}}},
                          {{"FILE", "the text", false, false}, {"OTHER", "more", true, true}}};

/// The texts look like parts of a page.
const DescribedTool odd{"Op",
                        "",
                        ".Sh NAME\n'br \\fB",
                        "-- - a,b .x Ar ...",
                        ".Ed",
                        {{"-%A", "", ".El\n.Sh x. Y", Takes::text, "No \"x\"", {}},
                         {"Ar", "--\xC3\xA9", "", Takes::choice, "", {"(", "a b"}},
                         {"", "", "text", Takes::choice, "", {}}},
                        {{"", "+", false, true}, {"Fl", "", false, false}}};

const DescribedTool bare{"bare", "", "", "", "", {}, {}};

TEST(ManPage, Usual) {
    EXPECT_EQ(manPage(usual, date, ""), R"(.\" -*- coding: utf-8 -*-
.Dd November 22, 2026
.Dt FIRSTLINES 1
.Os
.Sh NAME
.Nm firstlines
.Nd Shows the first lines of a text
.Sh SYNOPSIS
.Nm
.No \&[ Ns Fl c Ns No \&]
.No \&[ Ns Fl d Ns No = Ns Ar \&DIR Ns No \&| Ns Cm \-m Ns No = Ns Cm fast Ns No \&| Ns Cm exact Ns No \&]
.No \&[ Ns Fl n Ns No = Ns Ar LINES Ns No \&]
.No \&[ Ns Fl o Ns No = Ns Ar FILE Ns No \&]
.Ar FILE
.No \&[ Ns Ar OTHER Ns No ...\& Ns No \&]
.Sh DESCRIPTION
Shows the first lines of a text.
They may be cut.
.Pp
The arguments are as follows:
.Bl -tag -width Ds
.It Ar FILE
the text
.It Ar OTHER
more
.El
.Sh OPTIONS
An option is its short form or its whole long form, in upper or lower case.
A value is attached to it with
.Ql = ,
without blanks.
If
.Fl h
or
.Fl \-help
is anywhere on the command line, the tool prints its help and does nothing else.
.Bl -tag -width Ds
.It Fl c , Fl \-case
keeps the case
.It Fl d Ns = Ns Ar \&DIR , Fl \-dir Ns = Ns Ar \&DIR
where
.It Fl h , Fl \-help
shows this help
.It Fl m Ns = Ns Cm fast Ns \&| Ns Cm exact , Fl \-method Ns = Ns Cm fast Ns \&| Ns Cm exact
how
.It Fl n Ns = Ns Ar LINES , Fl \-number Ns = Ns Ar LINES
how many lines (10)
.It Fl w Ns = Ns Ar VALUE , Fl \-width Ns = Ns Ar VALUE
how wide
.El
.Sh EXIT STATUS
.Bl -tag -width Ds
.It 0
Success.
Help or a rejected command line may also end with 0.
.It >0
An error occurred.
.El
.Sh EXAMPLES
.Bd -literal -offset indent
firstlines \-n=3 notes.txt
.Ed
)");
}

TEST(ManPage, Odd) {
    EXPECT_EQ(manPage(odd, date, ""), R"(.\" -*- coding: utf-8 -*-
.Dd November 22, 2026
.Dt \&OP 1
.Os
.Sh NAME
.Nm \&Op
.Nd .Sh NAME \(aqbr \efB
.Sh SYNOPSIS
.Nm
.Fl \-
.Fl \&
.No a Ns No \&, Ns No b
.No .x
.No \&Ar
.No ...\&
.Sh DESCRIPTION
\&.Sh NAME \(aqbr \efB
.Pp
The arguments are as follows:
.Bl -tag -width Ds
.It \&
+
.It Ar \&Fl
.El
.Sh OPTIONS
An option is its short form or its whole long form, in upper or lower case.
A value is attached to it with
.Ql = ,
without blanks.
If
.Fl h
or
.Fl \-help
is anywhere on the command line, the tool prints its help and does nothing else.
.Bl -tag -width Ds
.It Fl \&%A Ns = Ns Ar "\&No \(dqx\(dq"
\&.El \&.Sh x.
Y
.It Cm \&Ar Ns = Ns Cm \&( Ns \&| Ns Cm "a b" , Fl \-)"
                                      "\xC3\xA9"
                                      R"(\& Ns = Ns Cm \&( Ns \&| Ns Cm "a b"
.It \&
text
.El
.Sh EXIT STATUS
.Bl -tag -width Ds
.It 0
Success.
Help or a rejected command line may also end with 0.
.It >0
An error occurred.
.El
.Sh EXAMPLES
.Bd -literal -offset indent
Op .Ed
.Ed
)");
}

TEST(ManPage, Bare) {
    EXPECT_EQ(manPage(bare, date, ""), R"(.\" -*- coding: utf-8 -*-
.Dd November 22, 2026
.Dt BARE 1
.Os
.Sh NAME
.Nm bare
.Nd command\-line tool
.Sh SYNOPSIS
.Nm
.Sh OPTIONS
If
.Fl h
or
.Fl \-help
is anywhere on the command line, the tool prints its help and does nothing else.
.Sh EXIT STATUS
.Bl -tag -width Ds
.It 0
Success.
Help or a rejected command line may also end with 0.
.It >0
An error occurred.
.El
)");
}

/// A section of the page can be replaced.
TEST(ManPage, Sections) {
    EXPECT_EQ(manPage(bare, date, ".Sh BUGS\nNone.\n.Sh OPTIONS\nNone.\n.Sh EXIT STATUS\nThat of\n.Xr true 1 .\n"),
              R"(.\" -*- coding: utf-8 -*-
.Dd November 22, 2026
.Dt BARE 1
.Os
.Sh NAME
.Nm bare
.Nd command\-line tool
.Sh SYNOPSIS
.Nm
.Sh OPTIONS
None.
.Sh EXIT STATUS
That of
.Xr true 1 .
.Sh BUGS
None.
)");
}

/// Both sections show a value in the same way.
TEST(ManPage, Values) {
    DescribedTool tool = bare;
    tool.usage = "[-k=KEY=VALUE]... [-q=0..100] [-l=<lines>] [-j=N|auto]";
    tool.options = {{"-q", "", "", Takes::text, "0..100", {}},
                    {"-l", "", "", Takes::text, "lines", {}},
                    {"-j", "", "", Takes::choice, "N", {"auto"}}};
    const std::string page = manPage(tool, date, "");
    EXPECT_NE(page.find(R"(.Sh SYNOPSIS
.Nm
.No \&[ Ns Fl k Ns No = Ns Ar \&KEY Ns No = Ns Ar VALUE Ns No \&] Ns No ...\&
.No \&[ Ns Fl q Ns No = Ns Ar 0..100 Ns No \&]
.No \&[ Ns Fl l Ns No = Ns No < Ns Ar lines Ns No > Ns No \&]
.No \&[ Ns Fl j Ns No = Ns Ar N Ns No \&| Ns Cm auto Ns No \&]
)"),
              std::string::npos)
        << page;
    EXPECT_NE(page.find(R"(.It Fl q Ns = Ns Ar 0..100
.It Fl l Ns = Ns Ar lines
.It Fl j Ns = Ns Ar N Ns \&| Ns Cm auto
)"),
              std::string::npos)
        << page;
}

TEST(ManPage, LongWords) {
    DescribedTool tool = bare;
    tool.options = {{"-n", "", "", Takes::choice, "", {"12345678901234", "1234567890"}}};
    EXPECT_EQ(manPage(tool, date, "").find(".ad l"), std::string::npos);
    tool.options[0].choices[1] += "1";
    EXPECT_NE(manPage(tool, date, "").find(".Sh OPTIONS\n.ad l\n"), std::string::npos);
    tool = bare;
    tool.description = "A 12345678901234567890123456789012";
    EXPECT_EQ(manPage(tool, date, "").find(".ad l"), std::string::npos);
    tool.description += "3";
    EXPECT_NE(manPage(tool, date, "").find(".Sh DESCRIPTION\n.ad l\nA "), std::string::npos);
    tool = bare;
    tool.usage = "[1234567890=1234567890|1]";
    EXPECT_EQ(manPage(tool, date, "").find(".ad l"), std::string::npos);
    tool.usage.insert(1, "x");
    EXPECT_NE(manPage(tool, date, "").find(".Sh SYNOPSIS\n.ad l\n"), std::string::npos);
}

}  // namespace
