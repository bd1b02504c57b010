@ Every immediate in a MOVW of r3 and a MOVT of r11, for the test to compare with. The assembler knows
@ the encoding from its own tables.
	.syntax	unified
	.thumb
	.text
	.altmacro
	.macro	both value
	movw	r3, #\value
	movt	r11, #\value
	.endm
	.set	value, 0
	.rept	65536
	both	%value
	.set	value, value + 1
	.endr
