# For GNU make, 4.2 or later: %.ruhx is made from %.kesp, and made anew when a file that it is made of, its command or
# kelvra-image itself has changed.
#
#   all: boot.ruhx app.ruhx
#   boot.ruhx: private KELVRA_SOURCE = common.lidhdr  # the RUVPD source, when it is not boot.lidhdr
#   boot.ruhx: private KELVRA_LID = bin/boot.bin      # the LID, when it is not boot.kesp
#   out/%.ruhx: private KELVRA_LID = $(@:out/%.ruhx=%.kesp)
#   app.ruhx: private KELVRA_TIMESTAMP = 1767225600   # the build time of a LID without a header, seconds since 1970
#   app.ruhx: private KELVRA_FLAGS = --lint           # more options of kelvra-image build
#   include /usr/share/kelvra/kelvra.mk
#
# "private" keeps them from what the image is made of, which may hold other images. The include comes last: after it,
# make expands what a rule depends on twice. Names of images have no blanks, those of sources an extension.
# Of files that make itself makes it must be told two things:
#   boot.ruhx: product.vpdinfo                  # which images need a VPDINFO source
#   boot.kesp:                                  # that a LID made by a pattern rule is not to be deleted in the end

# The program, and a folder for the depfile and the last command of each image.
KELVRA_IMAGE ?= kelvra-image
KELVRA_STATE ?= .kelvra

kelvra_lid = $(or $(strip $(KELVRA_LID)),$(@:.ruhx=.kesp))
kelvra_source = $(or $(strip $(KELVRA_SOURCE)),$(basename $(kelvra_lid)).lidhdr)
kelvra_state = $(KELVRA_STATE)/$(subst /,+-,$(subst +,++,$@))
kelvra_command = '$(KELVRA_IMAGE)' build --utc -l '$(kelvra_lid)' -r '$(kelvra_source)' -o '$@' \
  --depfile '$(kelvra_state).d' $(KELVRA_TIMESTAMP:%=--timestamp '%') $(KELVRA_FLAGS)

# The last command is there only when it succeeded: what failed or was interrupted is tried again.
define kelvra_build
@mkdir -p '$(KELVRA_STATE)' '$(@D)' && rm -f '$(kelvra_state).cmd' && \
  printf '%s\n' '$(subst ','\'',$(kelvra_command))' >'$(kelvra_state).new'
$(kelvra_command) && mv '$(kelvra_state).new' '$(kelvra_state).cmd'
endef
kelvra_last = $(and $(wildcard $(kelvra_state).d),$(file <$(kelvra_state).cmd))
kelvra_same = $(and $(findstring $(kelvra_last),$(kelvra_command)),$(findstring $(kelvra_command),$(kelvra_last)))
kelvra_tool := $(subst $() ,\ ,$(shell command -v '$(KELVRA_IMAGE)'))
kelvra_needs = $(kelvra_lid) $(kelvra_tool) $(if $(kelvra_same),,.kelvra-changed)

# The first goal remains the including makefile's.
kelvra_goal := $(.DEFAULT_GOAL)
-include $(wildcard $(KELVRA_STATE)/*.d $(KELVRA_STATE)/.*.d)
.DEFAULT_GOAL := $(kelvra_goal)

.DELETE_ON_ERROR:
.PHONY: .kelvra-changed
.SECONDEXPANSION:
%.ruhx: $$(kelvra_needs) | $$(kelvra_source)
	$(kelvra_build)
# Without its inputs, so that kelvra-image says which is missing: after make found no rules for them, as it looks for one
# for the absent file then too.
%.ruhx: %.kelvra-absent .kelvra-changed
	$(kelvra_build)
%.kelvra-absent: ; @:
