# The library exports its API only (abi/libq3a_tuning.map); abi/check holds
# the result to the ABI baseline and to the list of API symbols.
set(q3a_version_script ${PROJECT_SOURCE_DIR}/abi/libq3a_tuning.map)
target_link_options(q3a_tuning PRIVATE
                    -Wl,--version-script=${q3a_version_script})
set_property(TARGET q3a_tuning APPEND PROPERTY LINK_DEPENDS
             ${q3a_version_script})
