# Completion of vornctl for fish. The candidates come from vornctl itself, so that they never differ from
# what it takes.

function __vornctl_candidates
    set -l words (commandline -opc)
    set -l typed (commandline -ct)
    set -l found (vornctl --complete $words[2..-1] (string unescape -- $typed; or echo -- $typed) 2>/dev/null)
    if test "$found[1]" = @files
        set -l lead (string match -r -- '^--[a-z-]+=' $typed)
        for path in (__fish_complete_path (string replace -- "$lead" '' $typed))
            echo -- "$lead"$path
        end
    else
        printf '%s\n' $found
    end
end

complete -c vornctl -f -a '(__vornctl_candidates)'
