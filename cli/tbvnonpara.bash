# bash completion for tbvnonpara

_tbvnonpara_options() {
    local options="--y --sheet --headers --no-headers --format --delimiter --decimal --thousands --encoding --comment --save --output --overwrite --with-data
        --help"
    case $1 in
        mann-whitney | wilcoxon | spearman | sign) options+=" --x" ;;
    esac
    case $1 in
        sign | runs) ;;
        *) options+=" --descriptives" ;;
    esac
    case $1 in
        mann-whitney | wilcoxon | spearman | sign | runs) options+=" --tails" ;;
    esac
    if [[ $1 == wilcoxon ]]; then
        options+=" --ignore-ties"
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

_tbvnonpara() {
    local tests="mann-whitney wilcoxon spearman sign median friedman kruskal-wallis runs"
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
        --encoding) mapfile -t COMPREPLY < <(compgen -W "utf-8 latin1 windows-1252" -- "$word") ;;
        --decimal | --comment | --y | --x | --sheet | --output) ;;
        --save)
            compopt -o filenames 2>/dev/null
            mapfile -t COMPREPLY < <(compgen -f -- "$word")
            ;;
        *)
            if [[ $word == -* ]]; then
                mapfile -t COMPREPLY < <(compgen -W "$(_tbvnonpara_options "$test")" -- "$word")
            else
                # Folders are offered as well: a file may lie in one.
                compopt -o filenames 2>/dev/null
                mapfile -t COMPREPLY < <(
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
