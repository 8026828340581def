/* Floating-point control routines. Hand-written so that the state of MXCSR
 * and of the x87 control word at entry and exit is exactly what each routine
 * says. All are local to the library (hidden). */

	.text

#define FUNC(name) \
	.p2align 4; \
	.globl name; \
	.hidden name; \
	.type name,@function; \
name:

#define END(name) .size name,.-name

/* unsigned vrx_set_rc_ssx(unsigned rcBits): rcBits in position 0x6000.
 * Returns the old MXCSR; writes only when the rounding bits differ. */
FUNC(n0_vrx_set_rc_ssx)
	stmxcsr	-4(%rsp)
	movl	-4(%rsp), %eax
	movl	%eax, %edx
	andl	$0x6000, %edx
	cmpl	%edi, %edx
	je	1f
	movl	%eax, %edx
	andl	$~0x6000, %edx
	orl	%edi, %edx
	movl	%edx, -8(%rsp)
	ldmxcsr	-8(%rsp)
1:	ret
END(n0_vrx_set_rc_ssx)

/* void vrx_set_cw_ssx(unsigned mxcsr): writes the word unchanged. */
FUNC(n0_vrx_set_cw_ssx)
	movl	%edi, -4(%rsp)
	ldmxcsr	-4(%rsp)
	ret
END(n0_vrx_set_cw_ssx)

/* unsigned ps_set_ssx(unsigned value, unsigned mask): the masked bits of
 * MXCSR are replaced by those of value; returns the old word. */
FUNC(n0_ps_set_ssx)
	stmxcsr	-4(%rsp)
	movl	-4(%rsp), %eax
	andl	%esi, %edi
	notl	%esi
	andl	%eax, %esi
	orl	%edi, %esi
	movl	%esi, -8(%rsp)
	ldmxcsr	-8(%rsp)
	ret
END(n0_ps_set_ssx)

/* unsigned ps_get_ssx(void): reads MXCSR. */
FUNC(n0_ps_get_ssx)
	stmxcsr	-4(%rsp)
	movl	-4(%rsp), %eax
	ret
END(n0_ps_get_ssx)

/* unsigned ps_get_cw_fpu(void): reads the x87 control word. */
FUNC(n0_ps_get_cw_fpu)
	fnstcw	-4(%rsp)
	movzwl	-4(%rsp), %eax
	ret
END(n0_ps_get_cw_fpu)

/* unsigned ps_set_cw_fpu(unsigned value, unsigned mask): the masked bits of
 * the x87 control word are replaced by those of value; returns the old word. */
FUNC(n0_ps_set_cw_fpu)
	fnstcw	-4(%rsp)
	movzwl	-4(%rsp), %eax
	andl	%esi, %edi
	notl	%esi
	andl	%eax, %esi
	orl	%edi, %esi
	movw	%si, -8(%rsp)
	fldcw	-8(%rsp)
	ret
END(n0_ps_set_cw_fpu)

/* int vrx_isnan(double): exponent all ones and a nonzero mantissa. */
FUNC(n0_vrx_isnan)
	movq	%xmm0, %rax
	btrq	$63, %rax
	movabsq	$0x7FF0000000000000, %rdx
	cmpq	%rdx, %rax
	seta	%al
	movzbl	%al, %eax
	ret
END(n0_vrx_isnan)

	.section .note.GNU-stack,"",@progbits
