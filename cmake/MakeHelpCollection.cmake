# Makes a folder of help pages into a help collection: cmake -DSOURCE=<folder> -DDESTINATION=<folder>
# -DNAMESPACE=<name> -DSTART=<page> -DGENERATOR=<qhelpgenerator> -P MakeHelpCollection.cmake
#
# The destination gets the pages and <namespace>.qch. Titles are those of the pages; the contents begin with the start
# page and hold the others below it, by title.
cmake_minimum_required(VERSION 3.25)

file(GLOB pages RELATIVE "${SOURCE}" "${SOURCE}/*.htm")
if(NOT START IN_LIST pages)
    message(FATAL_ERROR "${SOURCE} has no page ${START}")
endif()

# A title as it may stand in an attribute. Pages are XML in this respect, apart from named characters.
function(read_title page result)
    file(READ "${SOURCE}/${page}" text)
    if(NOT text MATCHES "<title>([^<]+)</title>")
        message(FATAL_ERROR "${SOURCE}/${page} has no title")
    endif()
    string(STRIP "${CMAKE_MATCH_1}" title)
    string(REPLACE "&nbsp;" " " title "${title}")
    string(REPLACE "\"" "&quot;" title "${title}")
    set(${result} "${title}" PARENT_SCOPE)
endfunction()

string(ASCII 31 semicolon)
set(keys "")
foreach(page IN LISTS pages)
    read_title("${page}" title)
    # A semicolon would cut the list's entry in two.
    string(REPLACE ";" "${semicolon}" safe_title "${title}")
    list(APPEND keys "${safe_title}|${page}")
endforeach()
list(SORT keys CASE INSENSITIVE)

set(sections "")
set(files "")
foreach(key IN LISTS keys)
    string(REGEX MATCH "^(.*)\\|([^|]*)$" unused "${key}")
    set(page "${CMAKE_MATCH_2}")
    string(REPLACE "${semicolon}" ";" title "${CMAKE_MATCH_1}")
    string(APPEND files "      <file>${page}</file>\n")
    if(page STREQUAL START)
        set(start_title "${title}")
    else()
        string(APPEND sections "        <section title=\"${title}\" ref=\"${page}\"/>\n")
    endif()
endforeach()

# Nothing of an earlier build stays, such as a page that was removed.
file(REMOVE_RECURSE "${DESTINATION}")
file(MAKE_DIRECTORY "${DESTINATION}")
foreach(page IN LISTS pages)
    file(COPY "${SOURCE}/${page}" DESTINATION "${DESTINATION}")
endforeach()
set(project "${DESTINATION}/${NAMESPACE}.qhp")
file(WRITE "${project}" "<?xml version=\"1.0\" encoding=\"UTF-8\"?>
<QtHelpProject version=\"1.0\">
  <namespace>${NAMESPACE}</namespace>
  <virtualFolder>doc</virtualFolder>
  <filterSection>
    <toc>
      <section title=\"${start_title}\" ref=\"${START}\">
${sections}      </section>
    </toc>
    <files>
${files}    </files>
  </filterSection>
</QtHelpProject>
")
execute_process(COMMAND "${CMAKE_COMMAND}" -E env QT_QPA_PLATFORM=offscreen
    "${GENERATOR}" "${project}" -o "${DESTINATION}/${NAMESPACE}.qch"
    RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
if(NOT result EQUAL 0 OR NOT EXISTS "${DESTINATION}/${NAMESPACE}.qch")
    message(FATAL_ERROR "${output}")
endif()
file(REMOVE "${project}")
