# Bash completion of qvlog: commands, options, their choices, sort columns, log files and machines.

# The text of a word as the shell would pass it on: no opening quote, no backslashes.
_qvlog_plain() {
    local word=${1#[\"\']}
    printf '%s' "${word//\\/}"
}

# _qvlog_offer WORD PREFIX CHOICE...: replies with the choices that begin with WORD in any case,
# each behind PREFIX, quoted for the command line unless the user opened a quote already.
_qvlog_offer() {
    local word=$1 prefix=$2 plain choice
    shift 2
    plain=$(_qvlog_plain "$word")
    for choice in "$@"; do
        [[ ${choice,,} == "${plain,,}"* ]] || continue
        [[ $word == [\"\']* ]] || printf -v choice '%q' "$choice"
        COMPREPLY+=("$prefix$choice")
    done
}

# _qvlog_files WORD PREFIX PATTERN: replies with the folders and the files that match PATTERN.
_qvlog_files() {
    local plain name
    plain=$(_qvlog_plain "$1")
    compopt -o filenames 2>/dev/null
    while IFS= read -r name; do
        COMPREPLY+=("$2$name")
    done < <(
        compgen -d -- "$plain"
        compgen -f -X "!$3" -- "$plain" | while IFS= read -r name; do
            [[ -d $name ]] || printf '%s\n' "$name"
        done
    )
}

# _qvlog_value COMMAND OPTION WORD PREFIX: replies with the values of an option.
_qvlog_value() {
    case $2 in
        --class)
            _qvlog_offer "$3" "$4" "(All)" "Internal Test" "Machine Environment" "Main Memory" \
                "Cache Memory" "CPU" "Host Bus" "EISA Bus" "PCI Bus" "Expansion Slot" \
                "POST Messages" "Power Subsystem" "UPS" "Automatic Server Recovery" \
                "Operating System" "Diagnostics" "Network Adapter" "SCSI Subsystem" \
                "Drive Array Subsystem" "System Revision" "Unrecoverable System Error" "Maintenance"
            ;;
        --severity) _qvlog_offer "$3" "$4" "(All)" Critical Caution Repaired Informational ;;
        --updated | --initial)
            _qvlog_offer "$3" "$4" "(All)" "Since Yesterday" "Since Last Week" \
                "Since Last Month" "Since Last 6 Months" "Since Last Year"
            ;;
        --format)
            if [[ $1 == read ]]; then
                _qvlog_offer "$3" "$4" list qvx csv strict-csv jsonl report
            else
                _qvlog_offer "$3" "$4" csv strict-csv jsonl report
            fi
            ;;
        --sort)
            if [[ $3 == *:* ]]; then
                _qvlog_offer "${3#*:}" "$4${3%%:*}:" asc desc
            else
                compopt -o nospace 2>/dev/null # a colon may follow
                _qvlog_offer "$3" "$4" number description class severity count updated initial
            fi
            ;;
        -o | --output)
            if [[ $1 == sample ]]; then
                _qvlog_files "$3" "$4" '*.qvx'
            else
                _qvlog_files "$3" "$4" '*'
            fi
            ;;
    esac
}

# The options of a command: alone, and behind "--" those that take a value.
_qvlog_options() {
    local selection="--class --severity --updated --initial --since --until --text --sort"
    case $1 in
        list) echo "-h --help --no-header -- $selection" ;;
        show | info | describe) echo "-h --help --" ;;
        export) echo "-h --help -- --format --machine -o --output $selection" ;;
        sample) echo "-h --help -- --entries --seed -o --output" ;;
        read) echo "-h --help --no-header -- --format -o --output $selection" ;;
        *) echo "-h --help --version --" ;;
    esac
}

_qvlog() {
    COMPREPLY=()
    local words=() word raw='' i

    # Bash may hand "--sort=count:desc" over in five words; here it is one again.
    for ((i = 1; i <= COMP_CWORD; i++)); do
        word=${COMP_WORDS[i]}
        if ((${#words[@]} > 0)) && [[ $word == [:=] || $raw == [:=] ]]; then
            words[-1]+=$word
        else
            words+=("$word")
        fi
        raw=$word
    done
    local current=${words[-1]}
    unset 'words[-1]'
    [[ $raw == [:=] ]] && raw=''
    # What stands in front of the piece that Bash replaces.
    local lead=${current%"$raw"}

    # The command, the option that waits for a value, and how many positionals there are.
    local command='' option='' files_only='' positionals=0
    for word in "${words[@]}"; do
        if [[ -n $option ]]; then
            option=''
        elif [[ -z $files_only && $word == -- ]]; then
            files_only=yes
        elif [[ -z $files_only && $word == -?* ]]; then
            local options
            options=$(_qvlog_options "$command")
            [[ " ${options#*-- } " == *" $word "* && " ${options%%-- *} " != *" $word "* ]] &&
                option=$word
        elif [[ -z $command ]]; then
            command=$word
        else
            positionals=$((positionals + 1))
        fi
    done

    if [[ -n $option ]]; then
        _qvlog_value "$command" "$option" "$current" ''
    elif [[ -z $files_only && $current == --*=* ]]; then
        _qvlog_value "$command" "${current%%=*}" "${current#*=}" "${current%%=*}="
    elif [[ -z $files_only && $current == -* ]]; then
        for word in $(_qvlog_options "$command"); do
            # The long names say more.
            [[ $word == --?* && $word == "$current"* ]] && COMPREPLY+=("$word")
        done
    elif [[ -z $command ]]; then
        _qvlog_offer "$current" '' list show info export describe sample read
    elif [[ $command == list || $command == info || $command == export ]]; then
        _qvlog_files "$current" '' '*.qvx'
    elif [[ $command == show ]] && ((positionals > 0)); then
        _qvlog_files "$current" '' '*.qvx'
    elif [[ $command == read ]] && ((positionals == 0)); then
        mapfile -t COMPREPLY < <(compgen -A hostname -- "$current")
    fi

    # Replies stand for the last piece alone.
    if [[ -n $lead ]]; then
        lead=$(_qvlog_plain "$lead")
        COMPREPLY=("${COMPREPLY[@]#"$lead"}")
    fi
}

complete -F _qvlog qvlog
