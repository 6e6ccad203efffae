# Sets word to the word up to the cursor, without quotes; flag to its part up to "="; letter to the first letter of the flag; value
# to the rest; and paths to the files and folders that fish itself does not find: it completes what follows the last ":" or "=",
# and fish 4.0 completes no value in quotes.
function _kelp_quotes_read --no-scope-shadowing
    set word (commandline -ct | string collect)
    set paths (string match -r -- '["\']' "$word")
    set word (string unescape -- "$word" | string collect)
    set flag (string match -r -- '(?s)^-[^=]*=' "$word" | string collect)
    set letter (string replace -rf -- '(?s)^-(?:(.)|-(.).*)=$' '$1$2' "$flag" | string lower)
    set value (string replace -- "$flag" '' "$word" | string collect)
    set -q paths[1]; or string match -qr -- '[:=]' "$value"; and set paths "$value"*
end

# Prints the flag and each path. fish reads one word a line, up to a tab.
function _kelp_quotes_paths
    for path in $argv[2..]
        string match -qr -- '[\n\t]' "$path"; and continue
        test -d "$path"; and not string match -q -- '*/' "$path"; and set path "$path/"
        printf '%s\n' "$argv[1]$path"
    end
end

function _kelp_quotes_takes_files --no-scope-shadowing
    if test -n "$flag"
        contains -- "$letter" '\''; and not string match -q -- '*=~*' (commandline -ct)
    else
        not string match -q -- '-*' "$word"
    end
end

function _kelp_quotes_wants_fish
    set -l word
    set -l flag
    set -l letter
    set -l value
    set -l paths
    _kelp_quotes_read
    not set -q paths[1]; and _kelp_quotes_takes_files
end

function _kelp_quotes
    set -l word
    set -l flag
    set -l letter
    set -l value
    set -l paths
    _kelp_quotes_read
    set -q paths[1]; and _kelp_quotes_takes_files; and _kelp_quotes_paths "$flag" $paths
    if test -n "$flag"
        contains -- "$letter" 'a'; and printf '%s\n' "$flag"'fast' "$flag"'exact'
    else if string match -q -- '-*' "$word"
        printf '%s\t%s\n' '\'"`$(touch executed)`touch executed`;|&>executed %s%n \\ \\n .TH ]]>' '\'"`$(touch executed)`touch executed`;|&>executed %s%n \\ \\n .TH ]]>'
        printf '%s\t%s\n' '\'"`$(touch executed)`touch executed`;|&>executed %s%n \\ \\n .TH ]]>' '\'"`$(touch executed)`touch executed`;|&>executed %s%n \\ \\n .TH ]]>'
        printf '%s\t%s\n' '-a=' '\'"`$(touch executed)`touch executed`;|&>executed %s%n \\ \\n .TH ]]>'
        printf '%s\t%s\n' '--\'"`$(touch executed)`touch executed`;|&>executed %s%n \\ \\n .TH ]]>=' '\'"`$(touch executed)`touch executed`;|&>executed %s%n \\ \\n .TH ]]>'
    end
end

complete -c 'quotes' -f
complete -c 'quotes' -n _kelp_quotes_wants_fish -F
complete -c 'quotes' -a '(_kelp_quotes)'
