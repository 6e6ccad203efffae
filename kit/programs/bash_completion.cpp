#include <string>
#include <string_view>
#include <vector>

#include "formats.h"
#include "shell_quoting.h"

namespace Kelpkit::programs {

namespace {

/// The functions that do not depend on the options.
constexpr std::string_view functions = R"script(# shellcheck shell=bash

# Sets word to the last word of a line, without quotes; quote to the quote that is open at its end; and expands if it contains
# something that the shell expands.
_ID_read() {
    local rest='' later=$1 plain
    word='' quote='' expands=''
    while [[ $rest || $later ]]; do
        # bash copies the rest at every step, so it is short. It begins with at least two characters, if there are as many.
        if ((${#rest} < 2)); then
            rest+=${later:0:200}
            later=${later:200}
        fi
        case $quote in
            \') plain=${rest%%\'*} ;;
            \") plain=${rest%%[\"\\]*} ;;
            *) plain=${rest%%[[:space:]\;\|\&\<\>\(\)\"\'\\]*} ;;
        esac
        word+=$plain
        if [[ $quote != \' && $plain == *[\$\`]* ]]; then
            expands=yes
        fi
        rest=${rest:${#plain}}
        case $quote${rest:0:1} in
            "$quote") ;;
            \' | \") quote=${rest:0:1} ;;
            \'\' | \"\") quote='' ;;
            \\ | \"\\)
                if [[ $quote && ${rest:1:1} != [\"\\\$\`] ]]; then
                    word+=\\
                fi
                word+=${rest:1:1}
                rest=${rest:1}
                ;;
            *) word='' expands='' ;;
        esac
        rest=${rest:1}
    done
}

# Offers a word without the part that readline does not replace, and without a "=" that follows the cursor.
_ID_offer() {
    local rest=${1#"$before"} each
    if [[ ${COMP_LINE:COMP_POINT:1} == = ]]; then
        rest=${rest%=}
    fi
    case $quote in
        \') rest=${rest//\'/\'\\\'\'} ;;
        \")
            for each in \\ \" \$ \`; do
                rest=${rest//"$each"/"\\$each"}
            done
            ;;
        *)
            if [[ $rest ]]; then
                printf -v rest %q "$rest"
            fi
            ;;
    esac
    COMPREPLY+=("$rest")
    if [[ $1 == *[=/] ]]; then
        compopt -o nospace
    fi
}

# Offers those words that begin like the typed one, ignoring case.
_ID_offer_words() {
    local each found=()
    for each in "$@"; do
        if [[ ${each,,} == "${word,,}"* ]]; then
            found+=("$each")
        fi
    done
    for each in "${found[@]}"; do
        # readline replaces the typed word by what all words have in common.
        if ((${#found[@]} > 1)); then
            each=$word${each:${#word}}
        fi
        _ID_offer "$each"
    done
}

# Offers files, or with "/" folders, after the flag. readline completes them itself if it sees exactly their name.
_ID_offer_files() {
    local path=${word#"$flag"} each
    if [[ $flag && $path == \~/* && ! $quote && ($tail == \~/* || $tail == *=\~/*) ]]; then
        path=${HOME-}/${path:2} # The shell expands "~" only at the start of a word.
    elif [[ $before == "$flag" ]]; then
        if [[ ${1-} ]]; then
            compopt -o dirnames
        else
            compopt -o bashdefault -o default
        fi
        return
    fi
    while IFS= read -r -d '' each; do
        _ID_offer "$flag$each"
    done < <(
        set +efu
        shopt -u dotglob failglob nocaseglob
        shopt -s nullglob
        GLOBIGNORE=
        for each in "$path"*"${1-}"; do
            if [[ -d $each && $each != */ ]]; then
                each+=/
            fi
            printf '%s\0' "$each"
        done
    )
}

_ID() {
    local line=${COMP_LINE:0:COMP_POINT} tail=${2-} word quote expands before flag=''
    COMPREPLY=()
    # readline replaces tail. bash-completion, after sudo, passes separators instead of the empty text after them.
    if [[ $tail && $tail != *[!=:]* && ${COMP_WORDBREAKS-} == *"${tail: -1}"* ]]; then
        tail=''
    fi
    _ID_read "${line%"$tail"}"
    before=$word
    _ID_read "$line"
    if [[ $expands || $line != *"$tail" ]]; then
        compopt -o bashdefault -o default
        return
    fi
    case $word in
        -*=*)
            flag=${word%%=*}=
            case ${flag,,} in
)script";

/// Returns a call of _ID_offer_words with each word, after a prefix, on a line of its own; nothing without words.
std::string offerWords(const std::vector<std::string>& words, std::string_view prefix, const std::string& identifier) {
    std::string call = words.empty() ? "" : named("_ID_offer_words", identifier);
    for (const std::string& word : words) {
        call.append(" \\\n                    ").append(prefix).append(quotedForShell(word));
    }
    return call;
}

/// Returns the command that offers the values of an option; empty if there are none.
std::string offerValues(const DescribedOption& option, const std::string& identifier) {
    if (option.takes == Takes::choice) {
        return offerWords(option.choices, "\"$flag\"", identifier);
    }
    if (option.takes == Takes::folder) {
        return named("_ID_offer_files /", identifier);
    }
    const bool isFile = option.takes == Takes::file || option.takes == Takes::unknown;
    return isFile ? named("_ID_offer_files", identifier) : "";
}

std::string valueBranches(const DescribedTool& tool, const std::string& identifier) {
    std::string branches;
    for (const OptionLetter& each : optionLetters(tool)) {
        const std::string command = offerValues(*each.option, identifier);
        if (!command.empty()) {
            branches += "                " + quotedForShell('-' + each.letter + '=') + " | " +
                        quotedForShell("--" + each.letter) + "*) " + command + " ;;\n";
        }
    }
    return branches;
}

std::string offerFlags(const DescribedTool& tool, const std::string& identifier) {
    std::vector<std::string> words;
    for (const OfferedFlag& flag : offeredFlags(tool)) {
        words.push_back(flag.word);
    }
    return offerWords(words, "", identifier);
}

}  // namespace

std::string bashCompletion(const DescribedTool& tool) {
    const std::string identifier = identifierOf(tool.name);
    std::string script = named(functions, identifier) + valueBranches(tool, identifier);
    script += "                *) ;;\n            esac\n            ;;\n";
    script += takesFiles(tool) ? "        -*)\n" : "        -* | '')\n";
    script += "            " + offerFlags(tool, identifier) + "\n            ;;\n";
    script += takesFiles(tool) ? named("        *) _ID_offer_files ;;\n", identifier) : "        *) ;;\n";
    script += "    esac\n}\n\n";
    return script + named("complete -F _ID -- ", identifier) + quotedForShell(tool.name) + '\n';
}

}  // namespace Kelpkit::programs
