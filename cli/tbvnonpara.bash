# bash completion for tbvnonpara

_tbvnonpara_options() {
    if [[ $1 == describe ]]; then
        printf -- '--sheet --transpose --headers --no-headers --na --names --format --safe-csv --delimiter --decimal --thousands --encoding --comment --threads --help'
        return
    fi
    local options="--y --by --groups --each --plan --where --missing --na --sheet --transpose --headers --no-headers --format --safe-csv --delimiter --decimal --thousands --encoding --comment --threads
        --save --output --overwrite --with-data --details --confidence --adjust --help"
    case $1 in
        mann-whitney | wilcoxon | spearman | sign) options+=" --x" ;;
    esac
    case $1 in
        wilcoxon | spearman | sign | friedman) options+=" --block" ;;
    esac
    case $1 in
        median | friedman | kruskal-wallis) options+=" --control" ;;
    esac
    case $1 in
        friedman | kruskal-wallis) options+=" --trend" ;;
    esac
    [[ $1 == sign ]] || options+=" --permutations --seed"
    case $1 in
        sign | runs) ;;
        *) options+=" --descriptives" ;;
    esac
    case $1 in
        mann-whitney | wilcoxon | spearman | sign | runs) options+=" --tails" ;;
    esac
    if [[ $1 == wilcoxon ]]; then
        options+=" --ignore-ties"
    elif [[ $1 == runs ]]; then
        options+=" --cut --cut-equal"
    fi
    printf '%s' "$options"
}

_tbvnonpara_tails() {
    case $1 in
        spearman) printf 'two greater less positive negative' ;;
        runs) printf 'two greater less fewer more' ;;
        *) printf 'two greater less' ;;
    esac
}

# A name as the shell reads it, with nothing in it that would act on the terminal.
_tbvnonpara_quoted() {
    local text=$1 quoted="" character code i
    for ((i = 0; i < ${#text}; i++)); do
        character=${text:i:1}
        printf -v code %d "'$character"
        if ((code == 127 || (code >= 0 && code < 32))); then
            printf -v character '\\%03o' "$code"
        elif (((code >= 0x80 && code < 0xA0) || (code >= 0x2028 && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069))); then
            printf -v character '\\u%04x' "$code"
        elif [[ $character == [\\\'] ]]; then
            character="\\$character"
        fi
        quoted+=$character
    done
    printf '%s' "\$'$quoted'"
}

# Offers the names of files and folders on standard input. Only where one of them would act on the terminal are they
# quoted here, otherwise by the shell, which also tells folders apart.
_tbvnonpara_offer_files() {
    local name turning=$'\u2028\u2029\u202A\u202B\u202C\u202D\u202E\u2066\u2067\u2068\u2069'
    # Only a locale with these characters can show them.
    ((${#turning} == 11)) || turning=""
    local acting="[[:cntrl:]$turning]"
    mapfile -t COMPREPLY
    if [[ ${COMPREPLY[*]} != *$acting* ]]; then
        compopt -o filenames 2>/dev/null
        return
    fi
    local names=("${COMPREPLY[@]}")
    COMPREPLY=()
    compopt -o nospace 2>/dev/null
    for name in "${names[@]}"; do
        # A line break in a name makes two of it that are not there.
        [[ -e $name ]] || continue
        [[ -d $name ]] && name+=/
        if [[ $name == *$acting* ]]; then
            COMPREPLY+=("$(_tbvnonpara_quoted "$name")")
        else
            COMPREPLY+=("$(printf %q "$name")")
        fi
    done
}

# The file that was typed, without the shell's quotes.
_tbvnonpara_file() {
    local i word
    for ((i = 2; i < COMP_CWORD; i++)); do
        word=${COMP_WORDS[i]}
        if [[ $word != -* && ${COMP_WORDS[i - 1]} != --[a-z]* ]]; then
            word=${word//[\\\"\']/}
            printf '%s' "${word/#\~/$HOME}"
            return
        fi
    done
}

# Offers the columns or the sheets of the file that was typed; behind a comma, the next column.
_tbvnonpara_offer_names() {
    local kind=$1 word=${2//[\\\"\']/} file name before=""
    file=$(_tbvnonpara_file)
    [[ -f $file ]] || return
    [[ $kind == columns && $word == *,* ]] && before=${word%,*},
    while IFS= read -r name; do
        if [[ $name == "${word#"$before"}"* && $name != *[[:cntrl:]]* ]]; then
            COMPREPLY+=("$before$(printf %q "$name")")
        fi
    done < <("${COMP_WORDS[0]}" describe "$file" --names "$kind" 2>/dev/null)
}

_tbvnonpara() {
    local tests="mann-whitney wilcoxon spearman sign median friedman kruskal-wallis runs describe"
    local word=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} test=${COMP_WORDS[1]}
    COMPREPLY=()
    if ((COMP_CWORD == 1)); then
        mapfile -t COMPREPLY < <(compgen -W "$tests --help --version" -- "$word")
        return
    fi
    case $previous in
        --tails) mapfile -t COMPREPLY < <(compgen -W "$(_tbvnonpara_tails "$test")" -- "$word") ;;
        --format) mapfile -t COMPREPLY < <(compgen -W "text json csv html xlsx" -- "$word") ;;
        --delimiter) mapfile -t COMPREPLY < <(compgen -W "tab space" -- "$word") ;;
        --thousands) mapfile -t COMPREPLY < <(compgen -W "space" -- "$word") ;;
        --cut) mapfile -t COMPREPLY < <(compgen -W "median mean" -- "$word") ;;
        --cut-equal) mapfile -t COMPREPLY < <(compgen -W "drop above below" -- "$word") ;;
        --encoding) mapfile -t COMPREPLY < <(compgen -W "utf-8 latin1 windows-1252" -- "$word") ;;
        --adjust) mapfile -t COMPREPLY < <(compgen -W "holm bonferroni bh none" -- "$word") ;;
        --missing) mapfile -t COMPREPLY < <(compgen -W "omit" -- "$word") ;;
        --names) mapfile -t COMPREPLY < <(compgen -W "columns sheets" -- "$word") ;;
        --y | --x | --by | --block) _tbvnonpara_offer_names columns "$word" ;;
        --sheet) _tbvnonpara_offer_names sheets "$word" ;;
        --decimal | --comment | --groups | --where | --na | --output | --confidence | --control) ;;
        --save)
            _tbvnonpara_offer_files < <(compgen -f -- "$word")
            ;;
        *)
            if [[ $word == -* ]]; then
                mapfile -t COMPREPLY < <(compgen -W "$(_tbvnonpara_options "$test")" -- "$word")
            else
                # Folders are offered as well: a file may lie in one.
                _tbvnonpara_offer_files < <(
                    compgen -d -- "$word"
                    compgen -f -X '!*.csv' -- "$word"
                    compgen -f -X '!*.tsv' -- "$word"
                    compgen -f -X '!*.@(xlsx|xlsm|ods|fods)' -- "$word"
                )
            fi
            ;;
    esac
}

complete -F _tbvnonpara tbvnonpara
