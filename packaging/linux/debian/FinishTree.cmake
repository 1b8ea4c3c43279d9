# Run by cpack on the files that it packs: adds Debian's documents, and compresses what Debian wants compressed.
set(share ${CPACK_TEMPORARY_DIRECTORY}/usr/share)

# add(FILE NAME): puts a file of the sources into the package's folder of documents.
function(add file name)
    set(target ${share}/doc/zentilconf/${name})
    file(COPY_FILE ${CPACK_ZENTILCONF_SOURCES}/${file} ${target})
    file(CHMOD ${target} PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
endfunction()

# compress(FILE): without the time, so that the same files give the same package.
function(compress file)
    execute_process(COMMAND gzip --best --no-name ${share}/${file} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

add(packaging/linux/debian/copyright copyright)
add(packaging/linux/debian/changelog changelog.Debian)
add(CHANGELOG.md changelog)
compress(doc/zentilconf/changelog.Debian)
compress(doc/zentilconf/changelog)
compress(man/man1/zentilconf.1)

# Folders have the rights that the builder's umask gave them.
file(GLOB_RECURSE entries LIST_DIRECTORIES true ${CPACK_TEMPORARY_DIRECTORY}/usr/*)
foreach(entry IN LISTS entries ITEMS ${CPACK_TEMPORARY_DIRECTORY}/usr)
    if(IS_DIRECTORY ${entry})
        file(CHMOD ${entry} PERMISSIONS
            OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
    endif()
endforeach()
